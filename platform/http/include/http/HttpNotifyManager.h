#pragma once

#include "http/HttpExport.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

class HttpObserverBase;
class IHttpRequest;
class IHttpResponse;

/// The notification hub: announces finished calls by number to whoever asked for that number. Delivery
/// is synchronous, in the order of registration. An observer may remove itself, add another or be
/// destroyed while it is being notified; one that is added during a delivery hears of the next one.
/// GUI thread.
class TL_HTTP_EXPORT HttpNotifyManager final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static HttpNotifyManager* Instance();

    /// Not owned. Registering the same observer for the same id twice delivers once.
    void AddObserver(HttpObserverBase* observer, int id);
    void AddObserver(HttpObserverBase* observer, const QList<int>& ids);
    /// Takes the observer off all ids, at once, also during a delivery. An unknown one is ignored.
    void RemoveAllMessage(HttpObserverBase* observer);

    void Dispatch(int id, const QSharedPointer<IHttpRequest>& request,
                  const QSharedPointer<IHttpResponse>& response);

Q_SIGNALS:
    /// Every `Dispatch`, before the observers hear of it.
    void SigDispatched(int id);

private:
    HttpNotifyManager() = default;

    QHash<int, QList<HttpObserverBase*>> m_observers;
};
