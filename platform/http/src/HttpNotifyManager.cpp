#include "http/HttpNotifyManager.h"

#include "http/HttpObserverBase.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <algorithm>

HttpNotifyManager* HttpNotifyManager::Instance()
{
    // Never deleted: static observers remove themselves when the process ends.
    static auto* const instance = new HttpNotifyManager;
    return instance;
}

void HttpNotifyManager::AddObserver(HttpObserverBase* observer, int id)
{
    if (!observer) {
        return;
    }
    QVector<Registration>& registrations = m_observers[id];
    const bool known = std::any_of(registrations.cbegin(), registrations.cend(),
                                   [observer](const Registration& r) { return r.observer == observer; });
    if (!known) {
        registrations.append({observer, ++m_lastNumber});
    }
}

void HttpNotifyManager::AddObserver(HttpObserverBase* observer, const QList<int>& ids)
{
    for (const int id : ids) {
        AddObserver(observer, id);
    }
}

void HttpNotifyManager::RemoveAllMessage(HttpObserverBase* observer)
{
    for (auto it = m_observers.begin(); it != m_observers.end();) {
        QVector<Registration>& registrations = it.value();
        registrations.erase(
            std::remove_if(registrations.begin(), registrations.end(),
                           [observer](const Registration& r) { return r.observer == observer; }),
            registrations.end());
        it = registrations.isEmpty() ? m_observers.erase(it) : std::next(it);
    }
}

void HttpNotifyManager::Dispatch(int id, const QSharedPointer<IHttpRequest>& request,
                                 const QSharedPointer<IHttpResponse>& response)
{
    // The caller's pointers may be members of an observer that is destroyed here.
    const QSharedPointer<IHttpRequest> keptRequest = request;
    const QSharedPointer<IHttpResponse> keptResponse = response;
    // NOLINTEND(performance-unnecessary-copy-initialization)
    // Takes those registered now, and looks each up again before its turn: it may be gone by then.
    const QVector<Registration> registrations = m_observers.value(id);
    Q_EMIT SigDispatched(id);
    for (const Registration& registration : registrations) {
        if (IsRegistered(id, registration.number)) {
            registration.observer->OnHttpNotify(id, keptRequest, keptResponse);
        }
    }
}

bool HttpNotifyManager::IsRegistered(int id, quint64 number) const
{
    const auto it = m_observers.constFind(id);
    return it != m_observers.cend() && std::any_of(it->cbegin(), it->cend(), [number](const Registration& r) {
               return r.number == number;
           });
}
