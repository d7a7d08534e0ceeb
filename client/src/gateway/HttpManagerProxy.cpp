#include "gateway/HttpManagerProxy.h"

#include "CachedReads.h"

#include "http/HttpCallKind.h"
#include "http/IHttpResponse.h"
#include "http/IHttpResponseBase.h"

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
    const bool isWrite = HttpCallKind::IsWrite(*response);
    m_keepsUpToDate = false;
    Q_EMIT SigStarted(call, isWrite);
    const bool isWatched = m_keepsUpToDate && !isWrite;
    const int start = isWatched ? m_reads->HandleStart(request) : 0;
    const auto ended = [self = QPointer<HttpManagerProxy>(this), reads = m_reads, call, isWrite, isWatched,
                        start, request, response, completion = std::move(finished)] {
        const bool succeeded = response->IsSuccess();
        const auto* const json = qobject_cast<const IHttpResponseBase*>(response.data());
        const bool fromCache = json != nullptr && json->IsFromCache();
        if (isWatched && succeeded && !fromCache) {
            reads->HandleAnswer(request, start);
        }
        if (self) {
            if (fromCache) {
                Q_EMIT self->SigServedFromCache(call);
            }
            Q_EMIT self->SigAnswered(call, succeeded, response->GetErrorCode(),
                                     succeeded ? QString() : response->GetErrorDesc());
        }
        if (completion) {
            completion(); // may delete the proxy
        }
        if (self) {
            Q_EMIT self->SigEnded(call);
        }
        if (isWrite && succeeded) {
            reads->HandleChange();
        }
    };
    m_next->Send(request, response, ended, timeout, attempts);
}

void HttpManagerProxy::SetOpen(bool open)
{
    m_reads->SetOpen(open);
}
