#include "frame-core/IRouteInterceptor.h"

IRouteInterceptor::~IRouteInterceptor() = default;

bool IRouteInterceptor::HasRouteValue(const VXRouterProtocol&)
{
    return false;
}

QVariant IRouteInterceptor::GetRouteValue(const VXRouterProtocol&)
{
    return QVariant();
}
