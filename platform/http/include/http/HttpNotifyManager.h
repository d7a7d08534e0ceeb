#pragma once

#include "http/HttpExport.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QVector>

class HttpObserverBase;
class IHttpRequest;
class IHttpResponse;

/// The notification hub: announces finished calls by number to the observers of that number. Delivery is
/// synchronous, in the order of registration. An observer may remove itself, add another or be destroyed
/// while it is being notified; one that is added during a delivery hears of the next one. GUI thread.
class TL_HTTP_EXPORT HttpNotifyManager final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process, which lives until the process ends.
    static HttpNotifyManager* Instance();

    /// Does not own the observer. Registering it twice for the same id delivers once.
    void AddObserver(HttpObserverBase* observer, int id);
    void AddObserver(HttpObserverBase* observer, const QList<int>& ids);
    /// Removes the observer from all ids at once, even during a delivery. Ignores an unknown one.
    void RemoveAllMessage(HttpObserverBase* observer);

    /// Returns when every observer of `id` has been told; keeps both objects alive until then. An observer
    /// may dispatch in turn.
    void Dispatch(int id, const QSharedPointer<IHttpRequest>& request,
                  const QSharedPointer<IHttpResponse>& response);

Q_SIGNALS:
    /// Emitted at every `Dispatch`, before the observers hear of it.
    void SigDispatched(int id);

private:
    // The number tells an observer from a later one at the same address.
    struct Registration
    {
        HttpObserverBase* observer;
        quint64 number;
    };

    HttpNotifyManager() = default;
    bool IsRegistered(int id, quint64 number) const;

    QHash<int, QVector<Registration>> m_observers;
    quint64 m_lastNumber = 0;
};
