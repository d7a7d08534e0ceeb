#pragma once

#include "base/BaseExport.h"

class QObject;
class VXRouterProtocol;

/// The client's router, which carries out router URLs. Provided through `Provided<IRouteExecutor>`. GUI
/// thread.
class TL_BASE_EXPORT IRouteExecutor
{
public:
    virtual ~IRouteExecutor();

    /// Acts on the URL. False, with a warning in the log, when nobody knows the URL; false, too, when the one
    /// who knows it could not act.
    virtual bool ExecuteRoute(const VXRouterProtocol& route) = 0;

    /// The object behind the URL; null when there is none. The client or a module owns it, and it lives at
    /// least until the modules are unloaded.
    virtual QObject* GetRouteObject(const VXRouterProtocol& route) = 0;

    /// The provided router. Null while there is none; routing then fails with a warning.
    static IRouteExecutor* Provided() noexcept;
    static void Provide(IRouteExecutor* executor) noexcept;

protected:
    IRouteExecutor() = default;
    Q_DISABLE_COPY(IRouteExecutor)
};
