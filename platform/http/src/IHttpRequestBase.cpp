#include "http/IHttpRequestBase.h"

IHttpRequestBase::IHttpRequestBase(QObject* parent) : IHttpRequest(parent) {}

IHttpRequestBase::~IHttpRequestBase() = default;

QString IHttpRequestBase::GetHostIp() const
{
    return QString();
}

QString IHttpRequestBase::GetLogInfo() const
{
    return QString::fromUtf8(GetMethodName());
}

bool IHttpRequestBase::IsDegradeApi() const
{
    return false;
}

QString IHttpRequestBase::GetDegradeDescription() const
{
    return QString();
}

void IHttpRequestBase::DoReset() {}
