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
    // A little less than the limit, so that the kept replies come in before it when nobody answers.
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
    const auto request = QSharedPointer<PluginListRequest>::create();
    const auto response = QSharedPointer<HttpResponseObjectDsm<PluginListEntity>>::create();
    response->SetAutoCache(true);
    const QPointer<UserInformation> guard(this);
    IHttpManager::Instance()->Send(
        request, response,
        [guard, response] {
            if (!guard) {
                return;
            }
            // One app that cannot be understood does not hide the others.
            const auto plugins = response->GetEntity()->GetPlugins();
            if (response->IsSuccess() || !plugins.isEmpty()) {
                guard->m_plugins->SetPlugins(plugins);
            }
            guard->TakeEnd();
        },
        timeout, 1);
}

void UserInformation::ReadFunctions(int timeout)
{
    const auto request = QSharedPointer<FunctionListRequest>::create();
    const auto response = QSharedPointer<HttpResponseObjectDsm<FunctionListEntity>>::create();
    response->SetAutoCache(true);
    const QPointer<UserInformation> guard(this);
    IHttpManager::Instance()->Send(
        request, response,
        [guard, response] {
            if (!guard) {
                return;
            }
            const auto functions = response->GetEntity()->GetFunctions();
            if (response->IsSuccess() || !functions.isEmpty()) {
                guard->m_functions->SetFunctions(functions);
            }
            guard->TakeEnd();
        },
        timeout, 1);
}

void UserInformation::TakeEnd()
{
    // Ends of a later refresh, or after the limit, are waited for by nobody.
    if (m_waiting > 0 && --m_waiting == 0) {
        m_limit.stop();
        Q_EMIT SigFinished();
    }
}
