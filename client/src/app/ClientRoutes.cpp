#include "ClientRoutes.h"

#include "browser/TabRouterUrls.h"
#include "modules/ClientRouter.h"

#include "base/VXRouterProtocol.h"
#include "frame-data/ITabOpener.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TabOpenInfo.h"

namespace {

QString Parameter(const VXRouterProtocol& route, const char* key)
{
    return route.GetWith(QLatin1String(key));
}

bool IsDelay(const VXRouterProtocol& route)
{
    return Parameter(route, "isDelay") == QLatin1String("1");
}

bool OpenPage(const VXRouterProtocol& route)
{
    ITabOpener* const opener = ITabOpener::Provided();
    if (!opener) {
        return false;
    }
    TabOpenInfo info;
    info.address = Parameter(route, "url");
    info.title = Parameter(route, "title");
    info.iconUrl = Parameter(route, "icon");
    info.isDelay = IsDelay(route);
    opener->OpenUrl(info, -1);
    return true;
}

bool OpenApp(const VXRouterProtocol& route)
{
    ITabOpener* const opener = ITabOpener::Provided();
    if (!opener) {
        return false;
    }
    PluginOpenInfo info;
    info.serviceCode = Parameter(route, "code");
    info.title = Parameter(route, "title");
    info.iconUrl = Parameter(route, "icon");
    info.isDelay = IsDelay(route);
    opener->OpenPlugin(info, -1);
    return true;
}

} // namespace

void AddTabRoutes(ClientRouter& router)
{
    router.AddRoute(TabRouterUrls::BrowserOpen, OpenPage);
    router.AddRoute(TabRouterUrls::PluginOpen, OpenApp);
}
