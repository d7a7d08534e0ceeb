#pragma once

#include "modules/LoadedModule.h"

#include "base/IRouteExecutor.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>

#include <functional>
#include <vector>

class IRouteInterceptor;

/// Routes router URLs: first to the modules that listed the URL, in the order of loading, then to the
/// client's own table. Catches what a module throws. GUI thread.
class ClientRouter final : public IRouteExecutor
{
public:
    using Handler = std::function<bool(const VXRouterProtocol&)>;

    bool ExecuteRoute(const VXRouterProtocol& route) override;
    QObject* GetRouteObject(const VXRouterProtocol& route) override;

    /// Reads every module's list of URLs; call after `InitModule`. Call with an empty list before
    /// `UninitModule`.
    void SetModules(const std::vector<LoadedModule>& modules);
    /// Whether the module listed the URL.
    bool IsListed(const QString& url, const QString& moduleKey) const;
    /// Adds a URL to the client's own table; the handler returns whether it acted.
    void AddRoute(const QString& url, Handler handler);
    /// Does not own the object, which may be destroyed at any time.
    void AddObject(const QString& url, QObject* object);

private:
    struct ModuleRoutes
    {
        QString key;
        IRouteInterceptor* interceptor;
        QStringList urls;
    };
    struct OwnRoute
    {
        QString url;
        Handler handler;
    };
    struct OwnObject
    {
        QString url;
        QPointer<QObject> object;
    };

    std::vector<ModuleRoutes> RoutesFor(const VXRouterProtocol& route) const;

    std::vector<ModuleRoutes> m_modules;
    std::vector<OwnRoute> m_routes;
    std::vector<OwnObject> m_objects;
};
