#pragma once

#include "base/BaseExport.h"

class QObject;
class VXRouterProtocol;

/// Where router URLs end: the client's router, provided through `Provided<IRouteExecutor>`.
/// GUI thread.
class TL_BASE_EXPORT IRouteExecutor
{
public:
    virtual ~IRouteExecutor();

    /// Acts on the URL. False, after one warning in the log, when nobody knows it.
    virtual bool ExecuteRoute(const VXRouterProtocol& route) = 0;

    /// The object behind the URL, owned by the client and alive until log-out. Null when there is none.
    virtual QObject* GetRouteObject(const VXRouterProtocol& route) = 0;

    /// What is provided now. Null while there is no router; routing then fails with a warning.
    static IRouteExecutor* Provided() noexcept;
    static void Provide(IRouteExecutor* executor) noexcept;

protected:
    IRouteExecutor() = default;
    Q_DISABLE_COPY(IRouteExecutor)
};
