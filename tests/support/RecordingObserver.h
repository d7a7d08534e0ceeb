#pragma once

#include "http/HttpObserverBase.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>

#include <vector>

/// Records every notification with these ids. Also appends `notify <id>` to the journal, if there is one, so
/// that a test sees the order across several recorders.
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
