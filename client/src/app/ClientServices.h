#pragma once

#include "GeneralData.h"
#include "gateway/ClientGateway.h"
#include "login/Session.h"
#include "modules/ClientRouter.h"
#include "modules/ModuleEventDispatch.h"
#include "monitoring/MonitorRecorder.h"

#include "base/Provided.h"
#include "frame-data/TLFunctionData.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http/HttpManager.h"
#include "http/VXImageCache.h"

#include <QtCore/QString>
#include <QtGui/QPixmap>

#include <functional>

/// Everything that the client provides to modules for the life of the process, except the browser. The
/// settings store must be open. GUI thread.
class ClientServices final
{
public:
    /// `profile` is the folder of the client's own data.
    ClientServices(const GatewaySettings& settings, const QString& profile);
    ~ClientServices();

    /// From here on everything uses the session's user, and nothing cached for another user.
    void SetSession(const Session& session);
    void ClearSession();

    /// A `PictureLoader` (see there) that fetches a picture through the provided image cache. Never calls
    /// `done` before it returns.
    static void LoadPicture(const QString& url, QObject* context,
                            const std::function<void(const QPixmap&)>& done);

    ClientGateway gateway;
    HttpManager http;
    TLPluginBaseManager plugins;
    TLFunctionData functions;
    GeneralData general;
    ClientRouter router;
    ModuleEventDispatch events;
    MonitorRecorder monitor;
    VXImageCache images;

private:
    const Provided<IDsmGateway> m_gatewayProvided;
    const Provided<IHttpManager> m_httpProvided;
    const Provided<IGeneralData> m_generalProvided;
    const Provided<IRouteExecutor> m_routerProvided;
    const Provided<IModuleEventDispatch> m_eventsProvided;
    const Provided<IMonitorSystem> m_monitorProvided;
    const Provided<VXImageCache> m_imagesProvided;
};
