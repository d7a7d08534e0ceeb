#include "ImageDownload.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace {

constexpr int MaxRedirects = 5;
constexpr int MaxAddressLength = 8192; // [UTF-16 code units]

bool IsOnTheWeb(const QUrl& url)
{
    const QString scheme = url.scheme();
    const bool web = scheme == QLatin1String("http") || scheme == QLatin1String("https");
    return web && url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty();
}

bool IsRedirect(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

} // namespace

ImageDownload::ImageDownload(QNetworkAccessManager& network, const ImageCacheLimits& limits)
    : m_network(network), m_maxSize(limits.bodySize)
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(limits.timeout);
    connect(&m_deadline, &QTimer::timeout, this, [this] { Conclude(QStringLiteral("it takes too long")); });
}

ImageDownload::~ImageDownload()
{
    DropReply();
}

void ImageDownload::Start(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setRawHeader("Accept", "image/*");
    // Nothing to unpack: the limit counts the bytes that arrive.
    request.setRawHeader("Accept-Encoding", "identity");
    // We check each address before we follow it. Qt has already followed more than the limit when it stops.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);

    if (!m_deadline.isActive()) {
        m_deadline.start(); // at the first address
    }
    m_reply = m_network.get(request);
    m_reply->setReadBufferSize(m_maxSize + 1);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &ImageDownload::OnMetaDataChanged);
    connect(m_reply, &QNetworkReply::readyRead, this, &ImageDownload::OnReadyRead);
    connect(m_reply, &QNetworkReply::finished, this, &ImageDownload::OnFinished);
}

QUrl ImageDownload::ToUrl(const QString& address)
{
    const QUrl url(address);
    return address.size() <= MaxAddressLength && IsOnTheWeb(url) ? url : QUrl();
}

void ImageDownload::OnMetaDataChanged()
{
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid() && announced.toLongLong() > m_maxSize) {
        Conclude(QStringLiteral("it is too large"));
    }
}

void ImageDownload::OnReadyRead()
{
    m_bytes += m_reply->read(m_maxSize + 1 - m_bytes.size());
    if (m_bytes.size() > m_maxSize) {
        Conclude(QStringLiteral("it is too large"));
    }
}

void ImageDownload::OnFinished()
{
    OnReadyRead();
    if (!m_reply) {
        return; // it was too large
    }
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (IsRedirect(status)) {
        Follow();
    } else if (status != 0 && status != 200) {
        Conclude(QStringLiteral("HTTP status %1").arg(status)); // Qt's text has the whole address in it
    } else if (m_reply->error() != QNetworkReply::NoError) {
        Conclude(m_reply->errorString());
    } else if (announced.isValid() && announced.toLongLong() > m_bytes.size()) {
        Conclude(QStringLiteral("the connection was closed in the middle"));
    } else {
        Conclude(QString());
    }
}

void ImageDownload::Follow()
{
    const QUrl from = m_reply->url();
    const QUrl to = from.resolved(m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl());
    const bool lessSafe = from.scheme() == QLatin1String("https") && to.scheme() != QLatin1String("https");
    if (++m_redirects > MaxRedirects) {
        Conclude(QStringLiteral("it is redirected too often"));
    } else if (!IsOnTheWeb(to) || lessSafe) {
        Conclude(QStringLiteral("it is redirected to where pictures are not fetched from"));
    } else {
        DropReply();
        m_bytes = QByteArray();
        Start(to);
    }
}

void ImageDownload::DropReply()
{
    if (QNetworkReply* const reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->deleteLater(); // hangs up; later, since the reply may be reporting
    }
}

void ImageDownload::Conclude(const QString& problem)
{
    m_deadline.stop();
    m_problem = problem;
    DropReply();
    if (!problem.isEmpty()) {
        m_bytes = QByteArray();
    }
    // The receiver may delete everything.
    QMetaObject::invokeMethod(this, &ImageDownload::SigDone, Qt::QueuedConnection);
}
