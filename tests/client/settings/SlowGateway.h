#pragma once

#include "base/Provided.h"
#include "http/IHttpManager.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <deque>

/// Answers reads with what is stored and stores what writes bring, after a while. Caches replies as the
/// client's own does: while the network fails, the last one serves.
class SlowGateway final : public QObject, public IHttpManager
{
    Q_OBJECT

public:
    SlowGateway();
    ~SlowGateway() override;

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

    /// Answers the oldest call that waits.
    void Answer();
    int GetWaiting() const { return static_cast<int>(m_calls.size()); }

    QString stored;      ///< one line per row: its text, a tab, 0 or 1
    int delay = 0;       ///< [ms]; 0: until `Answer`
    int failures = 0;    ///< so many calls fail from now on
    QString failureCode; ///< with what; empty: the network fails
    QByteArray cached;   ///< the last reply to a read that may be cached; empty: none
    int reads = 0;
    int writes = 0;

private:
    struct Call
    {
        QSharedPointer<IHttpRequest> request;
        QSharedPointer<IHttpResponse> response;
        std::function<void()> finished;
        QByteArray body;
    };

    std::deque<Call> m_calls;
    ::Provided<IHttpManager> m_provided;
};
