#include "app/ClientServices.h"

#include "app/ClientMemory.h"
#include "app/ClientRouterUrls.h"
#include "app/ClientRoutes.h"

#include "core/TLGlobalData.h"
#include "http/HttpReplyCache.h"

#include <memory>

ClientServices::ClientServices(const GatewaySettings& settings, const QString& profile)
    : gateway(settings)
    , http(std::make_unique<HttpReplyCache>(profile + QStringLiteral("/replies")))
    , monitor(profile + QStringLiteral("/monitor"))
    , m_gatewayProvided(&gateway)
    , m_httpProvided(&http)
    , m_generalProvided(&general)
    , m_routerProvided(&router)
    , m_eventsProvided(&events)
    , m_monitorProvided(&monitor)
{
    TLGlobalData::Instance()->SetUUID(ClientMemory::GetDeviceId());
    AddTabRoutes(router);
    router.AddObject(ClientRouterUrls::pluginsObject, &plugins);
    router.AddObject(ClientRouterUrls::functionsObject, &functions);
}

ClientServices::~ClientServices()
{
    ClearSession();
}

void ClientServices::SetSession(const Session& session)
{
    if (ClientMemory::GetLastPin() != session.pin) {
        http.ClearCache();
        ClientMemory::SetLastPin(session.pin);
    }
    gateway.SetAccessToken(session.accessToken);
    general.GetUserData()->Set(session.pin, session.belongType);
    general.GetAsyncInfoManager()->SetNormalLogin();
    TLGlobalData::Instance()->SetUser(session.pin, session.belongType);
}

void ClientServices::ClearSession()
{
    gateway.SetAccessToken(QString());
    general.GetUserData()->Set(QString(), QString());
    TLGlobalData::Instance()->ClearUser();
}
