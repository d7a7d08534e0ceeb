#pragma once

#include "http/HttpCallReport.h"
#include "http/HttpExport.h"
#include "http/IHttpManager.h"

#include <QtCore/QObject>

#include <memory>

class HttpReplyCache;

/// The gateway client, built on QNetworkAccessManager: form POST, no redirects, no cookies, replies of at
/// most 4 MiB, retries with a growing pause, kept replies through an `HttpReplyCache`. Deleting it drops the
/// calls in flight without running their completions.
class TL_HTTP_EXPORT HttpManager final : public QObject, public IHttpManager
{
    Q_OBJECT

public:
    /// Keeps replies in `cache`; null keeps none.
    explicit HttpManager(std::unique_ptr<HttpReplyCache> cache, QObject* parent = nullptr);
    ~HttpManager() override;

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

    /// Removes all kept replies, for a log-in as another user. Calls in flight no longer keep theirs.
    void ClearCache();

    /// Whether a write is in flight, as `HttpCallKind` tells writes from reads.
    bool IsWriting() const;
    /// Ends the calls in flight without running their completions: before the code of their senders is
    /// unloaded.
    void DropCalls();

Q_SIGNALS:
    /// Emitted before the completion of a call runs.
    void SigFinished(const HttpCallReport& report);

private:
    class Private;

    void Deliver(quint64 number);

    std::unique_ptr<Private> d;
};
