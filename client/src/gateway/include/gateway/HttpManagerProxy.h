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

    /// Inside `SigStarted`: the call is a read whose cached reply must not stay older than the changes. No
    /// effect on a write.
    void KeepUpToDate() noexcept { m_keepsUpToDate = true; }
    /// Whether to expect changes. While there are none to expect, each change brings the cached replies up to
    /// date at once, even after the end of this object.
    void SetOpen(bool open);

Q_SIGNALS:
    /// Inside `Send`. `isWrite`: as `HttpCallKind` says.
    void SigStarted(quint64 call, bool isWrite);
    /// Before `SigAnswered`: a cached reply serves in place of the gateway's.
    void SigServedFromCache(quint64 call);
    /// The outcome is there, and the call's own completion has not run yet. `description` says what went
    /// wrong and is empty when it `succeeded`.
    void SigAnswered(quint64 call, bool succeeded, const QString& code, const QString& description);
    /// The call's own completion has run.
    void SigEnded(quint64 call);

private:
    IHttpManager* m_next;                // the manager that was provided before
    ::Provided<IHttpManager> m_provided; // the interface has an operation of that name
    std::shared_ptr<CachedReads> m_reads;
    quint64 m_lastCall = 0;
    bool m_keepsUpToDate = false; ///< the reply of the call that starts now
};
