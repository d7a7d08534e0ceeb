#include "ClientServices.h"

#include "ClientMemory.h"
#include "ClientRouterUrls.h"
#include "ClientRoutes.h"

#include "core/TLGlobalData.h"
#include "frame-data/TLUrlUtils.h"
#include "http/HttpReplyCache.h"

#include <memory>

namespace {

// The largest picture is a tile's: 48 px, so this is sharp at 200 % with room to spare.
constexpr int PictureEdge = 128; // [px]

QImage FitForWindow(const QImage& image)
{
    return image.width() > PictureEdge || image.height() > PictureEdge
               ? image.scaled(PictureEdge, PictureEdge, Qt::KeepAspectRatio, Qt::SmoothTransformation)
               : image;
}

} // namespace

ClientServices::ClientServices(const GatewaySettings& settings, const QString& profile)
    : gateway(settings)
    , http(std::make_unique<HttpReplyCache>(profile + QStringLiteral("/replies")))
    , monitor(profile + QStringLiteral("/monitor"))
    , images(profile + QStringLiteral("/pictures"))
    , m_gatewayProvided(&gateway)
    , m_httpProvided(&http)
    , m_generalProvided(&general)
    , m_routerProvided(&router)
    , m_eventsProvided(&events)
    , m_monitorProvided(&monitor)
    , m_imagesProvided(&images)
{
    TLGlobalData::Instance()->SetUUID(ClientMemory::GetDeviceId());
    TLUrlUtils::SetVXDomains(settings.domains);
    AddTabRoutes(router);
    router.AddObject(ClientRouterUrls::PluginsObject, &plugins);
    router.AddObject(ClientRouterUrls::FunctionsObject, &functions);
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

void ClientServices::LoadPicture(const QString& url, QObject* context,
                                 const std::function<void(const QPixmap&)>& done)
{
    VXImageCache::Instance()->FetchImage(url, context, [done](const QImage& image) {
        if (!image.isNull()) {
            done(QPixmap::fromImage(FitForWindow(image)));
        }
    });
}
