#include "HttpCall.h"

#include "HttpBody.h"
#include "HttpOutcome.h"
#include "http/HttpError.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace {

constexpr qint64 MaxReplySize = qint64(4) * 1024 * 1024;

// The pause after `attempt` [ms]. It doubles each time, and varies, so that not all clients come back at the
// same moment to a gateway that has just recovered.
int PauseAfter(int attempt)
{
    const int pause = 200 << (attempt - 1);
    return pause * QRandomGenerator::global()->bounded(80, 121) / 100;
}

bool IsWebAddress(const QUrl& url)
{
    const QString scheme = url.scheme();
    return url.isValid() && !url.host().isEmpty() &&
           (scheme == QLatin1String("http") || scheme == QLatin1String("https"));
}

QNetworkRequest MakeRequest(QUrl url, const QString& hostIp, int bodySize)
{
    QNetworkRequest request;
    if (!hostIp.isEmpty()) {
        const QString host = url.host(QUrl::FullyEncoded);
        const QString port = url.port() < 0 ? QString() : QLatin1Char(':') + QString::number(url.port());
        const bool literal = host.contains(QLatin1Char(':'));
        request.setRawHeader(
            "Host", ((literal ? QLatin1Char('[') + host + QLatin1Char(']') : host) + port).toLatin1());
        request.setPeerVerifyName(host);
        url.setHost(hostIp);
    }
    request.setUrl(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QStringLiteral("application/x-www-form-urlencoded"));
    request.setHeader(QNetworkRequest::ContentLengthHeader, bodySize);
    request.setRawHeader("Accept", "application/json");
    // Nothing to unpack: the limit counts the bytes that arrive.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    return request;
}

} // namespace

HttpCall::HttpCall(QNetworkAccessManager& network, QSharedPointer<IHttpRequest> request,
                   QSharedPointer<IHttpResponse> response, int timeout, int attempts)
    : m_network(network), m_request(std::move(request)), m_response(std::move(response)), m_attempts(attempts)
{
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    m_deadline.setInterval(timeout);
    connect(&m_deadline, &QTimer::timeout, this, &HttpCall::OnDeadline);
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer);
    connect(&m_pause, &QTimer::timeout, this, &HttpCall::Attempt);
}

HttpCall::~HttpCall()
{
    DropReply();
}

void HttpCall::Start()
{
    m_elapsed.start();
    m_deadline.start();
    m_pause.start(0);
}

void HttpCall::Attempt()
{
    ++m_attempt;
    m_body.clear();
    m_request->DoReset();
    m_response->DoReset();

    if (m_request->IsDegradeApi()) {
        m_response->SetNetworkError(static_cast<int>(HttpError::SwitchedOff),
                                    m_request->GetDegradeDescription());
        Conclude();
        return;
    }
    const QString address = m_request->GetApiUrl();
    const QUrl url(address, QUrl::StrictMode);
    if (!IsWebAddress(url)) {
        m_response->SetNetworkError(static_cast<int>(HttpError::InvalidAddress),
                                    address.isEmpty() ? tr("No gateway address is configured.")
                                                      : tr("The gateway's address is not a web address."));
        Conclude();
        return;
    }

    const QByteArray body = m_request->GetApiBody();
    const QNetworkRequest request = MakeRequest(url, m_request->GetHostIp(), body.size());
    if (!IsWebAddress(request.url())) {
        m_response->SetNetworkError(static_cast<int>(HttpError::InvalidAddress),
                                    tr("The host that replaces the gateway's host is not a valid address."));
        Conclude();
        return;
    }
    auto* const device = new HttpBody(body);
    m_reply = m_network.post(request, device);
    device->setParent(m_reply);
    m_reply->setReadBufferSize(MaxReplySize + 1);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpCall::OnReadyRead);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpCall::OnReadyRead);
    connect(m_reply, &QNetworkReply::finished, this, &HttpCall::OnFinished);
}

void HttpCall::OnReadyRead()
{
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    m_body += m_reply->read(MaxReplySize + 1 - m_body.size());
    if (m_body.size() > MaxReplySize || announced.toLongLong() > MaxReplySize) {
        DropReply();
        m_response->SetNetworkError(static_cast<int>(HttpError::TooLarge),
                                    tr("The gateway's reply is larger than 4 MiB."));
        AttemptOver();
    }
}

void HttpCall::OnFinished()
{
    OnReadyRead();
    if (!m_reply) {
        return; // it was too large
    }
    QNetworkReply* const reply = m_reply;
    HttpOutcome::Take(*reply, m_body, m_response.data());
    DropReply();
    AttemptOver();
}

void HttpCall::OnDeadline()
{
    m_pause.stop();
    DropReply();
    m_response->SetNetworkError(static_cast<int>(HttpError::Timeout),
                                tr("The gateway did not answer within %1 seconds.")
                                    .arg(QString::number(m_deadline.interval() / 1000.0)));
    Conclude();
}

void HttpCall::AttemptOver()
{
    if (m_response->IsSuccess() || !m_response->ShouldRetry() || m_attempt >= m_attempts) {
        Conclude();
        return;
    }
    const int pause = PauseAfter(m_attempt);
    if (pause >= m_deadline.remainingTime()) {
        Conclude(); // this failure now beats a time-out later
        return;
    }
    m_pause.start(pause);
}

void HttpCall::Conclude()
{
    m_deadline.stop();
    m_pause.stop();
    // From the event loop: a reply that is reporting must not be deleted, and the receiver may delete
    // everything.
    QMetaObject::invokeMethod(this, &HttpCall::SigDone, Qt::QueuedConnection);
}

void HttpCall::DropReply()
{
    if (QNetworkReply* const reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->deleteLater(); // hangs up; later, since the reply may be reporting
    }
    m_body = QByteArray();
}
