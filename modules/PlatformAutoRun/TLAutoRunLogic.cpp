#include "TLAutoRunLogic.h"

#include "AutoRunCollectionEntity.h"
#include "AutoRunIdentifiers.h"
#include "AutoRunRouterUrls.h"
#include "GetAutoRunRequest.h"
#include "ProcessWide.h"
#include "SetAutoRunRequest.h"

#include "base/VXRouterProtocol.h"
#include "frame-core/IModuleEventDispatch.h"
#include "frame-core/ModuleEvent.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpManager.h"

#include <QtCore/QPointer>
#include <QtCore/QVariantList>

namespace {

constexpr int Timeout = 20000; // [ms]
constexpr int Attempts = 2;

ProcessWide<TLAutoRunLogic>& Holder()
{
    static ProcessWide<TLAutoRunLogic> holder;
    return holder;
}

void Announce(int id, const QString& eventName, const QSharedPointer<IHttpRequest>& request,
              const QSharedPointer<IHttpResponse>& response)
{
    HttpNotifyManager::Instance()->Dispatch(id, request, response);

    const ModuleEvent event(AutoRunIdentifiers::ModuleKey(), eventName, QVariantList());
    IModuleEventDispatch::GetDispatch()->DispatchModuleEvent(AutoRunIdentifiers::ModuleKey(), event);
}

} // namespace

TLAutoRunLogic* TLAutoRunLogic::Instance()
{
    return Holder().Instance();
}

void TLAutoRunLogic::ReleaseInstance()
{
    Holder().Release();
}

TLAutoRunLogic::TLAutoRunLogic() = default;

TLAutoRunLogic::~TLAutoRunLogic() = default;

void TLAutoRunLogic::RequestAutoRun(const QString& identity)
{
    const auto request = QSharedPointer<GetAutoRunRequest>::create();
    const auto response = QSharedPointer<HttpResponseObjectDsm<AutoRunCollectionEntity>>::create();
    if (!identity.isEmpty()) {
        request->SetIdentity(identity);
    }
    response->SetAutoCache(true);

    const auto finished = [guard = QPointer<TLAutoRunLogic>(this), request, response] {
        if (!guard) {
            return;
        }
        if (response->IsSuccess()) {
            guard->m_collection = response->GetEntity();
        }
        Announce(AutoRunIdentifiers::ReadFinished, AutoRunIdentifiers::ReadFinishedEvent(), request,
                 response);
    };
    IHttpManager::Instance()->Send(request, response, finished, Timeout, Attempts);
}

void TLAutoRunLogic::SaveAutoRun(const QList<AutoRunInfoEntityPtr>& systemItems,
                                 const QList<AutoRunInfoEntityPtr>& customItems,
                                 const QList<AutoRunInfoEntityPtr>& pluginItems)
{
    const auto request = QSharedPointer<SetAutoRunRequest>::create();
    const auto response = QSharedPointer<HttpResponseBasicDsm<bool>>::create();
    const auto collection = QSharedPointer<AutoRunCollectionEntity>::create();
    collection->systemItems = systemItems;
    collection->customItems = customItems;
    collection->pluginItems = pluginItems;
    request->SetCollection(collection);

    const auto finished = [request, response] {
        Announce(AutoRunIdentifiers::WriteFinished, AutoRunIdentifiers::WriteFinishedEvent(), request,
                 response);
    };
    IHttpManager::Instance()->Send(request, response, finished, Timeout, Attempts);
}

void TLAutoRunLogic::GetAutoRunList(QList<AutoRunInfoEntityPtr>& entries) const
{
    if (!m_collection) {
        return;
    }
    entries = m_collection->systemItems + m_collection->customItems + m_collection->pluginItems;
}

void TLAutoRunLogic::GetAutoRunCollection(QList<AutoRunInfoEntityPtr>& systemItems,
                                          QList<AutoRunInfoEntityPtr>& customItems,
                                          QList<AutoRunInfoEntityPtr>& pluginItems) const
{
    if (!m_collection) {
        return;
    }
    systemItems = m_collection->systemItems;
    customItems = m_collection->customItems;
    pluginItems = m_collection->pluginItems;
}

TLPluginBaseManager* TLAutoRunLogic::GetPluginManager() const
{
    const VXRouterProtocol route(AutoRunRouterUrls::PluginsObject());
    return qobject_cast<TLPluginBaseManager*>(route.GetObj());
}
