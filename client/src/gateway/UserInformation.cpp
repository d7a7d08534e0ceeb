#include "gateway/UserInformation.h"

#include "FunctionListEntity.h"
#include "FunctionListRequest.h"
#include "PluginListEntity.h"
#include "PluginListRequest.h"

#include "frame-data/TLFunctionData.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/IHttpManager.h"

#include <QtCore/QPointer>

namespace {

constexpr int UsualTimeout = 20000; // [ms]

} // namespace

UserInformation::UserInformation(TLPluginBaseManager* plugins, TLFunctionData* functions, QObject* parent)
    : QObject(parent), m_plugins(plugins), m_functions(functions)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        m_waiting = 0;
        Q_EMIT SigFinished();
    });
}

void UserInformation::Read(int limit)
{
    m_waiting = 2;
    m_limit.start(limit);
    // A little less than the limit, so that cached replies come in before it when the gateway does not
    // answer.
    const int timeout = limit - limit / 6;
    ReadPlugins(timeout);
    ReadFunctions(timeout);
}

void UserInformation::RefreshPlugins()
{
    ReadPlugins(UsualTimeout);
}

void UserInformation::RefreshFunctions()
{
    ReadFunctions(UsualTimeout);
}

void UserInformation::Stop()
{
    m_waiting = 0;
    m_limit.stop();
}

void UserInformation::ReadPlugins(int timeout)
{
    ReadList<PluginListRequest>(
        &PluginListEntity::GetPlugins, [this](const auto& plugins) { m_plugins->SetPlugins(plugins); },
        timeout);
}

void UserInformation::ReadFunctions(int timeout)
{
    ReadList<FunctionListRequest>(
        &FunctionListEntity::GetFunctions,
        [this](const auto& functions) { m_functions->SetFunctions(functions); }, timeout);
}

template <class Request, class Entity, class List, class Store>
void UserInformation::ReadList(List (Entity::*getList)() const, const Store& store, int timeout)
{
    const auto response = QSharedPointer<HttpResponseObjectDsm<Entity>>::create();
    response->SetAutoCache(true);
    IHttpManager::Instance()->Send(
        QSharedPointer<Request>::create(), response,
        [self = QPointer<UserInformation>(this), response, getList, store] {
            if (!self) {
                return;
            }
            // One entry that cannot be understood does not hide the others.
            const List list = ((*response->GetEntity()).*getList)();
            if (response->IsSuccess() || !list.isEmpty()) {
                store(list);
            }
            self->HandleEnd();
        },
        timeout, 1);
}

void UserInformation::HandleEnd()
{
    // Nobody waits for the end of a later refresh, or for one after the limit.
    if (m_waiting > 0 && --m_waiting == 0) {
        m_limit.stop();
        Q_EMIT SigFinished();
    }
}
