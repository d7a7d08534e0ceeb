#include "gateway/HttpManagerProxy.h"

#include "CachedReads.h"

#include "http/IHttpResponse.h"
#include "http/IHttpResponseBase.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QPointer>

#include <utility>

HttpManagerProxy::HttpManagerProxy(QObject* parent)
    : QObject(parent)
    , m_next(IHttpManager::Instance())
    , m_provided(this)
    , m_reads(std::make_shared<CachedReads>())
{}

HttpManagerProxy::~HttpManagerProxy() = default;

void HttpManagerProxy::Send(const QSharedPointer<IHttpRequest>& request,
                            const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                            int timeout, int attempts)
{
    const quint64 call = ++m_lastCall;
    const auto* const kept = dynamic_cast<const IResponseCacheMethod*>(response.data());
    const bool changes = kept == nullptr || !kept->IsAutoCache();
    m_wanted = false;
    Q_EMIT SigStarted(call, changes);
    const bool isKept = m_wanted && !changes;
    const int start = isKept ? m_reads->TakeStart(request) : 0;
    const auto ended = [self = QPointer<HttpManagerProxy>(this), reads = m_reads, call, changes, isKept,
                        start, request, response, completion = std::move(finished)] {
        const bool succeeded = response->IsSuccess();
        const auto* const json = qobject_cast<const IHttpResponseBase*>(response.data());
        const bool fromKept = json != nullptr && json->IsFromCache();
        if (isKept && succeeded && !fromKept) {
            reads->TakeAnswer(request, start);
        }
        if (self) {
            if (fromKept) {
                Q_EMIT self->SigServedFromKept(call);
            }
            Q_EMIT self->SigAnswered(call, succeeded, response->GetErrorCode(),
                                     succeeded ? QString() : response->GetErrorDesc());
        }
        if (completion) {
            completion(); // may end the watch
        }
        if (self) {
            Q_EMIT self->SigEnded(call);
        }
        if (changes && succeeded) {
            reads->TakeChange();
        }
    };
    m_next->Send(request, response, ended, timeout, attempts);
}

void HttpManagerProxy::SetOpen(bool open)
{
    m_reads->SetOpen(open);
}
