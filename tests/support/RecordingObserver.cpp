#include "RecordingObserver.h"

#include "http/HttpNotifyManager.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

RecordingObserver::RecordingObserver(const QList<int>& ids, QStringList* journal) : m_journal(journal)
{
    HttpNotifyManager::Instance()->AddObserver(this, ids);
}

RecordingObserver::~RecordingObserver() = default;

void RecordingObserver::OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                                     QSharedPointer<IHttpResponse> response)
{
    m_notifications.push_back({id, request, response});
    if (m_journal) {
        m_journal->append(QStringLiteral("notify %1").arg(id));
    }
}
