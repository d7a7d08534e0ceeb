#pragma once

#include "modules/LoadedModule.h"

#include "base/IRouteExecutor.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>

#include <functional>
#include <vector>

class IRouteInterceptor;

/// Where router URLs end: first the modules that listed the URL, in the order of loading, then the
/// client's own table. Nothing that a module throws gets out. GUI thread.
class ClientRouter final : public IRouteExecutor
{
public:
    using Handler = std::function<bool(const VXRouterProtocol&)>;

    bool ExecuteRoute(const VXRouterProtocol& route) override;
    QObject* GetRouteObject(const VXRouterProtocol& route) override;

    /// Reads every module's list of URLs, after `InitModule`. An empty list takes all of them out, before
    /// `UninitModule`.
    void SetModules(const std::vector<LoadedModule>& modules);
    /// Whether the module listed the URL.
    bool IsListed(const QString& url, const QString& moduleKey) const;
    /// Puts a URL into the client's own table; the handler tells whether it acted.
    void AddRoute(const QString& url, Handler handler);
    /// The object is not owned and may go.
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
