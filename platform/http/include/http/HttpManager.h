#pragma once

#include "http/HttpCallReport.h"
#include "http/HttpExport.h"
#include "http/IHttpManager.h"

#include <QtCore/QObject>

#include <memory>

class HttpReplyCache;

/// The gateway client on QNetworkAccessManager: form POST, no redirects, no cookies, at most 4 MiB of
/// reply, retries with a growing pause, kept replies through an `HttpReplyCache`.
/// Deleting it drops the calls in flight without running their completions.
class TL_HTTP_EXPORT HttpManager final : public QObject, public IHttpManager
{
    Q_OBJECT

public:
    /// `cache` is where replies are kept; null: nowhere.
    explicit HttpManager(std::unique_ptr<HttpReplyCache> cache, QObject* parent = nullptr);
    ~HttpManager() override;

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

    /// Empties what is kept, for a log-in as another user. Calls in flight no longer keep their replies.
    void ClearCache();

    /// Whether a write is in flight, as `HttpCallKind` tells writes from reads.
    bool IsWriting() const;
    /// Ends the calls in flight without running their completions: before the code of those who made them
    /// is unloaded.
    void DropCalls();

Q_SIGNALS:
    /// Before the completion of a call runs.
    void SigFinished(const HttpCallReport& report);

private:
    class Private;

    void Deliver(quint64 number);

    std::unique_ptr<Private> d;
};
