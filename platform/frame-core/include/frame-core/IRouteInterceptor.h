#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>

class VXRouterProtocol;

/// A module's share in routing. The client asks every module that lists a URL in `GetRouteUrls`, in the order
/// of loading, and then its own table; the first that handles the URL ends the search. URLs are compared as
/// `VXRouterProtocol::Matches` does, and what an operation throws counts as "not handled". GUI thread;
/// synchronous, inside the call that routes. The client stops asking before `IBusinessModule::UninitModule`.
/// The order of the operations is part of the contract.
class TL_FRAME_CORE_EXPORT IRouteInterceptor
{
public:
    virtual ~IRouteInterceptor();

    /// Handles the URL and returns true, or returns false to pass it on.
    virtual bool InterceptRoute(const VXRouterProtocol& route) = 0;
    /// Whether `GetRouteValue` has a value for the URL. False by default. Asked for objects only
    /// (`VXRouterProtocol::GetObj`).
    virtual bool HasRouteValue(const VXRouterProtocol& route);
    /// The value behind the URL: a `QObject*`, which the module owns. Invalid by default. The client passes
    /// over a null pointer or a value of another type.
    virtual QVariant GetRouteValue(const VXRouterProtocol& route);
    /// The URLs that concern this module, without query. Read once, after the `InitModule` of all modules and
    /// before `ILifeCycle::StartApp`.
    virtual QStringList GetRouteUrls() = 0;

protected:
    IRouteInterceptor() = default;
    Q_DISABLE_COPY(IRouteInterceptor)
};
