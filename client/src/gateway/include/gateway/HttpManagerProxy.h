#pragma once

#include "base/Provided.h"
#include "http/IHttpManager.h"

#include <QtCore/QObject>

#include <memory>

class CachedReads;

/// Stands before the provided `IHttpManager` for as long as it lives, passes every call on and tells when it
/// starts and ends. GUI thread.
class HttpManagerProxy final : public QObject, public IHttpManager
{
    Q_OBJECT

public:
    explicit HttpManagerProxy(QObject* parent = nullptr);
    ~HttpManagerProxy() override;

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

    /// Inside `SigStarted`: the call is a read whose kept reply shall not stay older than the changes.
    void KeepUpToDate() noexcept { m_wanted = true; }
    /// Whether changes are to be expected. Once they are not, kept replies are brought up to date, be it
    /// after the end of this.
    void SetOpen(bool open);

Q_SIGNALS:
    /// Inside `Send`. `changes`: the call may change something. One whose reply may be kept and served later
    /// only asks.
    void SigStarted(quint64 call, bool changes);
    /// Before `SigAnswered`: a kept reply serves in place of the gateway's.
    void SigServedFromKept(quint64 call);
    /// The outcome is there, and the call's own completion has not run yet. `description` says what went
    /// wrong and is empty when it `succeeded`.
    void SigAnswered(quint64 call, bool succeeded, const QString& code, const QString& description);
    /// The call's own completion has run.
    void SigEnded(quint64 call);

private:
    IHttpManager* m_next;                // before it stands in its place
    ::Provided<IHttpManager> m_provided; // the interface has an operation of that name
    std::shared_ptr<CachedReads> m_reads;
    quint64 m_lastCall = 0;
    bool m_wanted = false; ///< the call that starts is to be kept up to date
};
