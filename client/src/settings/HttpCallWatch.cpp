#include "settings/HttpCallWatch.h"

#include "http/IHttpResponse.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QPointer>

#include <utility>

HttpCallWatch::HttpCallWatch(QObject* parent)
    : QObject(parent), m_next(IHttpManager::Instance()), m_provided(this)
{}

HttpCallWatch::~HttpCallWatch() = default;

void HttpCallWatch::Send(const QSharedPointer<IHttpRequest>& request,
                         const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                         int timeout, int attempts)
{
    const quint64 call = ++m_lastCall;
    const auto* const kept = dynamic_cast<const IResponseCacheMethod*>(response.data());
    Q_EMIT SigStarted(call, kept == nullptr || !kept->IsAutoCache());
    const auto ended = [self = QPointer<HttpCallWatch>(this), call, response,
                        completion = std::move(finished)] {
        if (self) {
            const bool succeeded = response->IsSuccess();
            Q_EMIT self->SigAnswered(call, succeeded, response->GetErrorCode(),
                                     succeeded ? QString() : response->GetErrorDesc());
        }
        if (completion)
            completion(); // may end the watch
        if (self)
            Q_EMIT self->SigEnded(call);
    };
    m_next->Send(request, response, ended, timeout, attempts);
}
