#include "SlowGateway.h"

#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTimer>

#include <utility>

namespace {

QByteArray Reply(const QString& code, const QString& value)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("code"), code},
                                     {QStringLiteral("value"), value},
                                     {QStringLiteral("data"), QJsonObject()}})
        .toJson();
}

} // namespace

SlowGateway::SlowGateway() : m_provided(this) {}

SlowGateway::~SlowGateway() = default;

void SlowGateway::Send(const QSharedPointer<IHttpRequest>& request,
                       const QSharedPointer<IHttpResponse>& response, std::function<void()> finished, int,
                       int)
{
    const bool isRead = request->GetMethodName() == "read";
    ++(isRead ? reads : writes);
    m_calls.push_back({request, response, std::move(finished), request->GetApiBody()});
    if (delay > 0) {
        QTimer::singleShot(delay, Qt::PreciseTimer, this, &SlowGateway::Answer);
    }
}

void SlowGateway::Answer()
{
    const Call call = std::move(m_calls.front());
    m_calls.pop_front();
    auto* const caching = dynamic_cast<IResponseCacheMethod*>(call.response.data());
    const bool mayCache = caching != nullptr && caching->IsAutoCache();
    if (failures > 0) {
        --failures;
        if (failureCode.isEmpty()) {
            call.response->SetNetworkError(1, QStringLiteral("connection refused"));
            if (mayCache && !cached.isEmpty()) {
                caching->SetCacheData(cached);
            }
        } else {
            call.response->SetData(Reply(failureCode, QString()));
        }
    } else if (call.request->GetMethodName() == "read") {
        call.response->SetData(Reply(QStringLiteral("0"), stored));
        if (mayCache && caching->CanSaveToCache()) {
            cached = caching->GetCacheData();
        }
    } else {
        stored = QString::fromUtf8(call.body);
        call.response->SetData(Reply(QStringLiteral("0"), QString()));
    }
    if (call.finished) {
        call.finished();
    }
}
