#include "modules/ClientRouter.h"

#include "GuardedCall.h"

#include "base/VXRouterProtocol.h"
#include "frame-core/IBusinessModule.h"
#include "frame-core/IRouteInterceptor.h"

#include <QtCore/QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logRouter, "tl.client.router")

// Without the query, which may contain private data.
QString ForLog(const VXRouterProtocol& route)
{
    return route.GetUrl().section(QLatin1Char('?'), 0, 0);
}

} // namespace

bool ClientRouter::ExecuteRoute(const VXRouterProtocol& route)
{
    for (const ModuleRoutes& module : RoutesFor(route)) {
        bool handled = false;
        GuardedCall(module.key, "InterceptRoute",
                    [&] { handled = module.interceptor->InterceptRoute(route); });
        if (handled) {
            return true;
        }
    }
    for (const OwnRoute& own : m_routes) {
        if (route.Matches(own.url)) {
            return own.handler(route);
        }
    }
    qCWarning(logRouter).noquote() << "unknown router URL" << ForLog(route);
    return false;
}

QObject* ClientRouter::GetRouteObject(const VXRouterProtocol& route)
{
    for (const ModuleRoutes& module : RoutesFor(route)) {
        QObject* object = nullptr;
        GuardedCall(module.key, "GetRouteValue", [&] {
            if (module.interceptor->HasRouteValue(route)) {
                object = module.interceptor->GetRouteValue(route).value<QObject*>();
            }
        });
        if (object) {
            return object;
        }
    }
    for (const OwnObject& own : m_objects) {
        if (route.Matches(own.url)) {
            return own.object;
        }
    }
    qCWarning(logRouter).noquote() << "no object for the router URL" << ForLog(route);
    return nullptr;
}

void ClientRouter::SetModules(const std::vector<LoadedModule>& modules)
{
    m_modules.clear();
    for (const LoadedModule& loaded : modules) {
        GuardedCall(loaded.key, "GetRouteUrls", [&] {
            if (IRouteInterceptor* const interceptor = loaded.module->GetRouteInterceptor()) {
                m_modules.push_back({loaded.key, interceptor, interceptor->GetRouteUrls()});
            }
        });
    }
}

bool ClientRouter::IsListed(const QString& url, const QString& moduleKey) const
{
    const std::vector<ModuleRoutes> modules = RoutesFor(VXRouterProtocol(url));
    return std::any_of(modules.begin(), modules.end(),
                       [&moduleKey](const ModuleRoutes& module) { return module.key == moduleKey; });
}

void ClientRouter::AddRoute(const QString& url, Handler handler)
{
    m_routes.push_back({url, std::move(handler)});
}

void ClientRouter::AddObject(const QString& url, QObject* object)
{
    m_objects.push_back({url, object});
}

std::vector<ClientRouter::ModuleRoutes> ClientRouter::RoutesFor(const VXRouterProtocol& route) const
{
    std::vector<ModuleRoutes> found;
    std::copy_if(m_modules.begin(), m_modules.end(), std::back_inserter(found),
                 [&route](const ModuleRoutes& module) {
                     return std::any_of(module.urls.begin(), module.urls.end(),
                                        [&route](const QString& url) { return route.Matches(url); });
                 });
    return found;
}
