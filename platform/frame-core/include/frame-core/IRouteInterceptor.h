#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>

class VXRouterProtocol;

/// A module's share in routing. The client asks it for the URLs of `GetRouteUrls` before its own table.
/// GUI thread; synchronous, inside the call that routes. The order of the operations is part of the
/// contract.
class TL_FRAME_CORE_EXPORT IRouteInterceptor
{
public:
    virtual ~IRouteInterceptor();

    /// Handles the URL and returns true, or returns false so that it is routed on.
    virtual bool InterceptRoute(const VXRouterProtocol& route) = 0;
    /// Whether `GetRouteValue` has a value for the URL. False by default.
    virtual bool HasRouteValue(const VXRouterProtocol& route);
    /// The value behind the URL, a `QObject*` where an object is asked for; invalid by default.
    virtual QVariant GetRouteValue(const VXRouterProtocol& route);
    /// The URLs to be asked for, without query. Read once, after `InitModule`.
    virtual QStringList GetRouteUrls() = 0;

protected:
    IRouteInterceptor() = default;
    Q_DISABLE_COPY(IRouteInterceptor)
};
