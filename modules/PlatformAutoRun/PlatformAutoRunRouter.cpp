#include "PlatformAutoRunRouter.h"

#include "AutoRunRouterUrls.h"
#include "TLRecoverManager.h"
#include "TLRestartManager.h"

#include "base/VXRouterProtocol.h"

PlatformAutoRunRouter::PlatformAutoRunRouter() = default;

PlatformAutoRunRouter::~PlatformAutoRunRouter() = default;

bool PlatformAutoRunRouter::InterceptRoute(const VXRouterProtocol& route)
{
    if (route.Matches(AutoRunRouterUrls::Update())) {
        TLRecoverManager::Instance()->SaveTabs();
        return true;
    }
    if (route.Matches(AutoRunRouterUrls::Clean())) {
        TLRecoverManager::Instance()->ClearSync();
        return true;
    }
    if (route.Matches(AutoRunRouterUrls::RestartUpdate())) {
        TLRestartManager::Instance()->Save(route.GetWith(QStringLiteral("ignore")));
        return true;
    }
    return false;
}

QStringList PlatformAutoRunRouter::GetRouteUrls()
{
    return {AutoRunRouterUrls::Update(), AutoRunRouterUrls::Clean(), AutoRunRouterUrls::RestartUpdate()};
}
