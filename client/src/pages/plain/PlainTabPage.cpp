#include "PlainTabPage.h"

#include "PlainPageContent.h"

#include <utility>

namespace {

constexpr int MostRedirects = 20;
constexpr int FirstErrorStatus = 400;

bool IsWeb(const QUrl& url)
{
    return (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https")) &&
           !url.host().isEmpty();
}

PageFailure::Kind KindOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::HostNotFoundError:
        return PageFailure::Kind::HostNotFound;
    case QNetworkReply::ConnectionRefusedError:
        return PageFailure::Kind::ConnectionRefused;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError: // only the time limit cancels what is still wanted
        return PageFailure::Kind::TimedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return PageFailure::Kind::Certificate;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return PageFailure::Kind::NoNetwork;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProtocolFailure:
        return PageFailure::Kind::ConnectionLost;
    default:
        return PageFailure::Kind::Unknown;
    }
}

int StatusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QUrl RedirectOf(const QNetworkReply& reply)
{
    const QUrl target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    return target.isEmpty() ? QUrl() : reply.url().resolved(target);
}

} // namespace

PlainTabPage::PlainTabPage(Fetch fetch, QWidget* parent)
    : m_fetch(std::move(fetch)), m_view(new PlainPageView(parent))
{}

PlainTabPage::~PlainTabPage()
{
    DropReply();
    delete m_view;
}

QWidget* PlainTabPage::GetWidget()
{
    return m_view;
}

void PlainTabPage::Load(const QUrl& url)
{
    if (!IsWeb(url)) {
        Q_EMIT SigBlocked(url);
        return;
    }
    Start(url, m_current >= 0 && url == m_history.at(m_current) ? Step::Same : Step::New);
}

void PlainTabPage::Reload()
{
    if (m_request) {
        Start(QUrl(m_request->url), m_request->step);
    } else if (m_current >= 0) {
        Start(QUrl(m_history.at(m_current)), Step::Same);
    }
}

void PlainTabPage::Stop()
{
    DropReply();
    Finish(false);
}

void PlainTabPage::Back()
{
    if (CanGoBack()) {
        Start(QUrl(m_history.at(m_current - 1)), Step::Back);
    }
}

void PlainTabPage::Forward()
{
    if (CanGoForward()) {
        Start(QUrl(m_history.at(m_current + 1)), Step::Forward);
    }
}

bool PlainTabPage::CanGoBack() const
{
    return m_current > 0;
}

bool PlainTabPage::CanGoForward() const
{
    return m_current + 1 < m_history.size();
}

QUrl PlainTabPage::GetUrl() const
{
    if (m_request) {
        return m_request->url;
    }
    return m_current >= 0 ? m_history.at(m_current) : QUrl();
}

QString PlainTabPage::GetTitle() const
{
    return m_title;
}

bool PlainTabPage::IsLoading() const
{
    return m_request.has_value();
}

void PlainTabPage::Find(const QString& text, bool backward)
{
    Q_EMIT SigFound(m_view->Find(text, backward));
}

void PlainTabPage::SetZoom(double factor)
{
    m_zoom = factor;
    m_view->SetZoom(factor);
}

double PlainTabPage::GetZoom() const
{
    return m_zoom;
}

void PlainTabPage::LeaveFullScreen() {}

void PlainTabPage::Start(const QUrl& url, Step step)
{
    Stop();
    if (m_request) {
        return; // who was told of the end has asked for another page
    }
    m_request = Request();
    m_request->url = url;
    m_request->step = step;
    Q_EMIT SigLoadStarted();
    if (m_request && !m_reply) { // neither stopped nor replaced meanwhile
        Send();
    }
}

void PlainTabPage::Send()
{
    m_request->body.clear();
    m_reply = m_fetch(m_request->url);
    m_reply->setParent(this);
    // Beyond the limit nothing more is taken from the connection.
    m_reply->setReadBufferSize(PlainPageContent::Limit + 1);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &PlainTabPage::HandleHead);
    connect(m_reply, &QNetworkReply::readyRead, this, &PlainTabPage::HandleBytes);
    connect(m_reply, &QNetworkReply::finished, this, &PlainTabPage::HandleEnd);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (total > 0) {
            Q_EMIT SigProgress(static_cast<int>(qBound<qint64>(0, received * 100 / total, 100)));
        }
    });
}

void PlainTabPage::HandleHead()
{
    const QByteArray type = m_reply->rawHeader("Content-Type");
    if (type.isEmpty() || PlainPageContent::IsText(type, QByteArray()) || !RedirectOf(*m_reply).isEmpty()) {
        return;
    }
    Show(PlainPageView::Note::NotText);
}

void PlainTabPage::HandleBytes()
{
    if (!RedirectOf(*m_reply).isEmpty()) {
        return;
    }
    m_request->body += m_reply->read(PlainPageContent::Limit + 1 - m_request->body.size());
    if (!PlainPageContent::IsText(m_reply->rawHeader("Content-Type"), m_request->body)) {
        Show(PlainPageView::Note::NotText);
    } else if (m_request->body.size() > PlainPageContent::Limit) {
        Show(PlainPageView::Note::Cut);
    }
}

void PlainTabPage::HandleEnd()
{
    const QUrl target = RedirectOf(*m_reply);
    if (!target.isEmpty()) {
        FollowRedirect(target);
        return;
    }
    const QNetworkReply* const reply = m_reply;
    HandleBytes();
    if (m_reply != reply) {
        return;
    }
    const int status = StatusOf(*m_reply);
    const QNetworkReply::NetworkError error = m_reply->error();
    // A kept connection may be closed by the other side just when it is used again.
    if (error == QNetworkReply::RemoteHostClosedError && status == 0 &&
        !std::exchange(m_request->isRetry, true)) {
        DropReply();
        Send();
        return;
    }
    // An error with a page of its own is shown like any page.
    if (status >= FirstErrorStatus && m_request->body.isEmpty()) {
        Fail(PageFailure::Kind::HttpError, QStringLiteral("HTTP %1").arg(status));
    } else if (status < FirstErrorStatus && error != QNetworkReply::NoError) {
        Fail(KindOf(error), m_reply->errorString());
    } else {
        Show(PlainPageView::Note::None);
    }
}

void PlainTabPage::FollowRedirect(const QUrl& target)
{
    if (++m_request->redirects > MostRedirects) {
        Fail(PageFailure::Kind::TooManyRedirects, QString());
    } else if (!IsWeb(target)) {
        Fail(PageFailure::Kind::Blocked, target.toDisplayString());
    } else {
        DropReply();
        m_request->url = target;
        Send();
    }
}

void PlainTabPage::Show(PlainPageView::Note note)
{
    const QByteArray type = m_reply->rawHeader("Content-Type");
    const bool ok = StatusOf(*m_reply) < FirstErrorStatus;
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    PlainPageContent content;
    if (note != PlainPageView::Note::NotText) {
        content = PlainPageContent::Read(type, m_request->body.left(PlainPageContent::Limit));
    }
    DropReply();

    const QUrl url = m_request->url;
    switch (m_request->step) {
    case Step::New:
        m_history.resize(m_current + 1); // what was ahead is forgotten
        m_history.append(url);
        ++m_current;
        break;
    case Step::Same:
        break;
    case Step::Back:
        --m_current;
        break;
    case Step::Forward:
        ++m_current;
        break;
    }
    m_history[m_current] = url;
    m_title = content.title;
    m_view->SetContent(url, m_title, content.text, note, PlainPageContent::TypeOf(type),
                       length.isValid() ? length.toLongLong() : -1);
    Q_EMIT SigUrlChanged(url);
    Q_EMIT SigTitleChanged(m_title);
    if (std::exchange(m_isFailureShown, false)) {
        Q_EMIT SigContentArrived();
    }
    Finish(ok);
}

void PlainTabPage::Fail(PageFailure::Kind kind, const QString& detail)
{
    DropReply();
    m_isFailureShown = true;
    PageFailure failure;
    failure.kind = kind;
    failure.url = m_request->url;
    failure.detail = detail;
    Q_EMIT SigFailed(failure);
    Finish(false);
}

void PlainTabPage::Finish(bool ok)
{
    if (!m_request) {
        return;
    }
    m_request.reset();
    Q_EMIT SigHistoryChanged();
    Q_EMIT SigLoadFinished(ok);
}

void PlainTabPage::DropReply()
{
    if (!m_reply) {
        return;
    }
    QNetworkReply* const reply = std::exchange(m_reply, nullptr);
    reply->disconnect(this);
    // Not within one of its own signals: the connection would be handed on with the rest of the answer in it.
    QMetaObject::invokeMethod(
        reply,
        [reply] {
            reply->abort();
            reply->deleteLater();
        },
        Qt::QueuedConnection);
}
