#pragma once

#include "http/HttpObserverBase.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>

#include <vector>

/// Writes down every notification with these ids. With a journal, also `notify <id>` at its end, so that
/// a test sees the order among several recorders.
class RecordingObserver final : public HttpObserverBase
{
public:
    struct Notification
    {
        int id;
        QSharedPointer<IHttpRequest> request;
        QSharedPointer<IHttpResponse> response;
    };

    explicit RecordingObserver(const QList<int>& ids, QStringList* journal = nullptr);
    ~RecordingObserver() override;

    const std::vector<Notification>& GetNotifications() const noexcept { return m_notifications; }

    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override;

private:
    std::vector<Notification> m_notifications;
    QStringList* m_journal;
};
