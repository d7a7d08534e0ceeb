#include "http/IRequestCacheMethod.h"

IRequestCacheMethod::~IRequestCacheMethod() = default;

QString IRequestCacheMethod::GetCacheKey() const
{
    return QString();
}

QString IRequestCacheMethod::GetCTParam() const
{
    return QString();
}

QString IRequestCacheMethod::GetSuccessParam() const
{
    return QString();
}
