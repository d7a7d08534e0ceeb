#include "http/HttpManager.h"

#include "HttpCall.h"
#include "LoopbackProxyFactory.h"
#include "http/HttpCallKind.h"
#include "http/HttpReplyCache.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"
#include "http/IRequestCacheMethod.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QPointer>
#include <QtNetwork/QNetworkAccessManager>

#include <algorithm>
#include <map>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logHttp, "tl.http", QtInfoMsg)

constexpr int DefaultTimeout = 20000; // [ms]
constexpr int MaxAttempts = 5;

// The key of the kept reply; empty when the request or the response wants none.
QString KeyOf(const IHttpRequest& request, const IHttpResponse& response)
{
    const auto* const asked = dynamic_cast<const IRequestCacheMethod*>(&request);
    const auto* const answered = dynamic_cast<const IResponseCacheMethod*>(&response);
    if (!asked || !answered || !answered->IsAutoCache()) {
        return QString();
    }
    const QString key = asked->GetCacheKey();
    return key.isEmpty() ? QString() : key + QLatin1Char('\n') + asked->GetCTParam();
}

bool HasKeepableCode(const IHttpRequest& request, const IHttpResponse& response)
{
    const QString wanted = dynamic_cast<const IRequestCacheMethod&>(request).GetSuccessParam();
    return wanted.isEmpty() || wanted == response.GetErrorCode();
}

} // namespace

class HttpManager::Private final
{
public:
    struct Entry
    {
        std::unique_ptr<HttpCall> call;
        std::function<void()> finished;
        QString cacheKey; // from when the call was sent, like the rest
        quint64 cacheGeneration;
        bool isWrite;
    };

    explicit Private(std::unique_ptr<HttpReplyCache> replyCache) : cache(std::move(replyCache))
    {
        network.setProxyFactory(new LoopbackProxyFactory); // owned by the network object from here on
    }

    HttpCallReport ApplyCache(const Entry& entry);

    QNetworkAccessManager network;
    std::unique_ptr<HttpReplyCache> cache;
    quint64 cacheGeneration = 0;
    quint64 lastNumber = 0;
    std::map<quint64, Entry> calls; // last, so that they go before the network does
};

HttpCallReport HttpManager::Private::ApplyCache(const Entry& entry)
{
    const QSharedPointer<IHttpRequest> request = entry.call->GetRequest();
    const QSharedPointer<IHttpResponse> response = entry.call->GetResponse();
    HttpCallReport report;
    report.method = request->GetMethodName();
    report.attempts = entry.call->GetAttempts();

    // A key that has changed belongs to another user.
    if (cache && !entry.cacheKey.isEmpty() && entry.cacheKey == KeyOf(*request, *response)) {
        auto& side = dynamic_cast<IResponseCacheMethod&>(*response);
        if (side.CanSaveToCache()) {
            if (entry.cacheGeneration == cacheGeneration && HasKeepableCode(*request, *response)) {
                cache->Save(entry.cacheKey, side.GetCacheData());
            }
        } else if (side.NeedReadFromCache()) {
            const QByteArray kept = cache->Load(entry.cacheKey);
            if (!kept.isNull()) {
                const QString code = response->GetErrorCode();
                const QString description = response->GetErrorDesc();
                side.SetCacheData(kept);
                if (response->IsSuccess()) {
                    report.fromCache = true;
                    report.failureCode = code;
                    report.failure = description;
                }
            }
        }
    }
    report.ok = response->IsSuccess();
    report.code = response->GetErrorCode();
    report.description = response->GetErrorDesc();
    report.milliseconds = entry.call->GetElapsed();
    return report;
}

HttpManager::HttpManager(std::unique_ptr<HttpReplyCache> cache, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(std::move(cache)))
{
    qRegisterMetaType<HttpCallReport>();
}

HttpManager::~HttpManager() = default;

void HttpManager::Send(const QSharedPointer<IHttpRequest>& request,
                       const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                       int timeout, int attempts)
{
    Q_ASSERT(request && response);
    const quint64 number = ++d->lastNumber;
    auto call =
        std::make_unique<HttpCall>(d->network, request, response, timeout > 0 ? timeout : DefaultTimeout,
                                   std::clamp(attempts, 1, MaxAttempts));
    connect(call.get(), &HttpCall::SigDone, this, [this, number] { Deliver(number); });
    const auto [it, inserted] = d->calls.emplace(
        number, Private::Entry{std::move(call), std::move(finished), KeyOf(*request, *response),
                               d->cacheGeneration, HttpCallKind::IsWrite(*response)});
    it->second.call->Start();
}

void HttpManager::ClearCache()
{
    ++d->cacheGeneration;
    if (d->cache) {
        d->cache->Clear();
    }
}

bool HttpManager::IsWriting() const
{
    return std::any_of(d->calls.begin(), d->calls.end(),
                       [](const auto& call) { return call.second.isWrite; });
}

void HttpManager::DropCalls()
{
    d->calls.clear();
}

void HttpManager::Deliver(quint64 number)
{
    auto node = d->calls.extract(number);
    Private::Entry& entry = node.mapped();
    const QSharedPointer<IHttpRequest> request = entry.call->GetRequest();
    const QSharedPointer<IHttpResponse> response = entry.call->GetResponse();
    const HttpCallReport report = d->ApplyCache(entry);
    entry.call.reset();

    if (report.ok && !report.fromCache) {
        qCDebug(logHttp).noquote() << request->GetLogInfo() << report.milliseconds << "ms";
    } else {
        qCWarning(logHttp).noquote() << request->GetLogInfo()
                                     << (report.fromCache ? "served from a kept reply:" : "failed:")
                                     << (report.fromCache ? report.failureCode : report.code)
                                     << (report.fromCache ? report.failure : report.description) << "after"
                                     << report.attempts << "attempt(s)," << report.milliseconds << "ms";
    }
    const QPointer<HttpManager> self(this);
    Q_EMIT SigFinished(report);
    if (self && entry.finished) {
        entry.finished(); // may delete this object
    }
}
