#include "WebEngineTabPage.h"

#include "RequestGate.h"
#include "WebEnginePage.h"
#include "WebEngineView.h"

#include <QtCore/QRegularExpression>
#include <QtWebEngineCore/QWebEngineFindTextResult>
#include <QtWebEngineWidgets/QWebEngineFullScreenRequest>
#include <QtWebEngineWidgets/QWebEngineHistory>
#include <QtWebEngineWidgets/QWebEngineScript>
#include <QtWidgets/QApplication>

namespace {

constexpr int CloseTick = 100; // [ms]
constexpr int CloseTicks = 10; // for a page to say whether it may be closed

PageFailure::Kind KindOf(const QString& code)
{
    static const struct
    {
        const char* prefix;
        PageFailure::Kind kind;
    } kinds[] = {
        {"ERR_NAME_", PageFailure::Kind::HostNotFound},
        {"ERR_ICANN_NAME_COLLISION", PageFailure::Kind::HostNotFound},
        {"ERR_CONNECTION_REFUSED", PageFailure::Kind::ConnectionRefused},
        {"ERR_ADDRESS_UNREACHABLE", PageFailure::Kind::ConnectionRefused},
        {"ERR_CONNECTION_TIMED_OUT", PageFailure::Kind::TimedOut},
        {"ERR_TIMED_OUT", PageFailure::Kind::TimedOut},
        {"ERR_CERT_", PageFailure::Kind::Certificate},
        {"ERR_SSL_", PageFailure::Kind::Certificate},
        {"ERR_INTERNET_DISCONNECTED", PageFailure::Kind::NoNetwork},
        {"ERR_NETWORK_CHANGED", PageFailure::Kind::NoNetwork},
        {"ERR_NETWORK_ACCESS_DENIED", PageFailure::Kind::NoNetwork},
        {"ERR_PROXY_CONNECTION_FAILED", PageFailure::Kind::NoNetwork},
        {"ERR_EMPTY_RESPONSE", PageFailure::Kind::ConnectionLost},
        {"ERR_CONNECTION_", PageFailure::Kind::ConnectionLost},
        {"ERR_INVALID_", PageFailure::Kind::ConnectionLost},
        {"ERR_CONTENT_", PageFailure::Kind::ConnectionLost},
        {"ERR_INCOMPLETE_", PageFailure::Kind::ConnectionLost},
        {"ERR_RESPONSE_", PageFailure::Kind::ConnectionLost},
        {"ERR_HTTP2_", PageFailure::Kind::ConnectionLost},
        {"ERR_TOO_MANY_REDIRECTS", PageFailure::Kind::TooManyRedirects},
        {"ERR_UNSAFE_", PageFailure::Kind::Blocked},
        {"ERR_BLOCKED_", PageFailure::Kind::Blocked},
        {"HTTP ERROR", PageFailure::Kind::HttpError},
    };
    for (const auto& entry : kinds) {
        if (code.startsWith(QLatin1String(entry.prefix)))
            return entry.kind;
    }
    return PageFailure::Kind::Unknown;
}

/// Until a page says its title, the engine gives its address as one.
bool IsAddressAsTitle(const QString& title, const QUrl& url)
{
    const QUrl asUrl = QUrl::fromUserInput(title);
    return asUrl.isValid() && asUrl.host() == url.host() && asUrl.path().size() <= url.path().size() + 1 &&
           (title.startsWith(url.host()) || title.contains(QLatin1String("://")));
}

/// Whether the one is a place in the document of the other.
bool IsPlaceIn(const QUrl& document, const QUrl& url)
{
    return url.hasFragment() && url.matches(document, QUrl::RemoveFragment);
}

} // namespace

WebEngineTabPage::WebEngineTabPage(QWebEngineProfile* profile, QWidget* parent)
    : m_profile(profile)
    , m_page(std::make_unique<WebEnginePage>(
          profile, [this](QWebEnginePage::WebWindowType type) { return MakeWindow(type); }))
    , m_view(new WebEngineView(parent))
{
    m_view->setPage(m_page.get());
    m_view->setObjectName(QStringLiteral("web_view"));

    QWebEnginePage* const page = m_page.get();
    connect(page, &QWebEnginePage::loadStarted, this, &WebEngineTabPage::OnStarted);
    connect(page, &QWebEnginePage::loadProgress, this, &WebEngineTabPage::OnProgress);
    connect(page, &QWebEnginePage::loadFinished, this, &WebEngineTabPage::OnFinished);
    connect(page, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
        if (!RequestGate::IsWeb(url) && !url.isEmpty() && url.scheme() != QLatin1String("about") &&
            url.scheme() != QLatin1String("blob"))
            return;
        const bool there = m_announced && IsPlaceIn(m_shown, url) &&
                           url.fragment(QUrl::FullyEncoded) == m_pending.fragment(QUrl::FullyEncoded);
        m_shown = url;
        if (!m_announced || there)
            m_pending.clear();
        if (!m_pending.isValid())
            Q_EMIT SigUrlChanged(url);
        Q_EMIT SigHistoryChanged();
        // The engine says neither start nor end of what leads to another place in the same document.
        if (there)
            Withdraw(true);
    });
    connect(page, &QWebEnginePage::titleChanged, this, [this](const QString& title) {
        Q_EMIT SigTitleChanged(IsAddressAsTitle(title, m_page->url()) ? QString() : title);
    });
    const auto icon = [this] { Q_EMIT SigIconChanged(m_page->iconUrl(), m_page->icon()); };
    connect(page, &QWebEnginePage::iconUrlChanged, this, icon);
    connect(page, &QWebEnginePage::iconChanged, this, icon);
    connect(page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                if (status == QWebEnginePage::NormalTerminationStatus)
                    return;
                ++m_loadNumber;
                m_announced = false;
                m_staying = false;
                m_failed = true;
                Finish(false);
                Q_EMIT SigRendererDied();
            });
    connect(page, &QWebEnginePage::windowCloseRequested, this, [this] {
        m_closing.stop();
        Q_EMIT SigCloseRequested();
    });
    m_closing.setInterval(CloseTick);
    connect(&m_closing, &QTimer::timeout, this, [this] {
        // While the user takes their time, with this page or another, the engine does not hear of any.
        m_closeTicks = QApplication::activeModalWidget() ? 0 : m_closeTicks + 1;
        if (m_closeTicks < CloseTicks)
            return;
        m_closing.stop();
        Q_EMIT SigCloseRequested();
    });
    connect(page, &QWebEnginePage::linkHovered, this, &ITabPage::SigLinkHovered);
    connect(page, &QWebEnginePage::findTextFinished, this,
            [this](const QWebEngineFindTextResult& result) { Q_EMIT SigFound(result.numberOfMatches()); });
    connect(page, &QWebEnginePage::featurePermissionRequested, this, &WebEngineTabPage::OnPermission);
    connect(page, &QWebEnginePage::fullScreenRequested, this, [this](QWebEngineFullScreenRequest request) {
        if (request.toggleOn() && !m_view->isVisible()) {
            request.reject();
            return;
        }
        request.accept();
        Q_EMIT SigFullScreenRequested(request.toggleOn());
    });
    connect(m_page.get(), &WebEnginePage::SigExternalRequested, this, &ITabPage::SigExternalRequested);
    connect(m_page.get(), &WebEnginePage::SigBlocked, this, &ITabPage::SigBlocked);
    connect(m_page.get(), &WebEnginePage::SigStays, this, &WebEngineTabPage::OnStays);
    connect(m_page.get(), &WebEnginePage::SigSeveralDownloads, this, &WebEngineTabPage::AskSeveralDownloads);
    // Later, as the engine is still with the page.
    connect(
        m_page.get(), &WebEnginePage::SigDownloadTaken, this,
        [this] {
            if (m_opened && m_page->history()->count() == 0)
                Q_EMIT SigCloseRequested(); // opened for the download alone
        },
        Qt::QueuedConnection);
    connect(m_view, &WebEngineView::SigInput, m_page.get(), &WebEnginePage::NoteInput);
}

WebEngineTabPage::~WebEngineTabPage()
{
    m_page->disconnect(this);
    // The engine answers what is still asked while the page ends: nobody is left to tell.
    ++m_loadNumber;
    m_staying = false;
    delete m_view;
    WebEnginePage::End(std::move(m_page));
}

QWidget* WebEngineTabPage::GetWidget()
{
    return m_view;
}

void WebEngineTabPage::Load(const QUrl& url)
{
    if (!RequestGate::IsWeb(url)) {
        Q_EMIT SigBlocked(url);
        return;
    }
    // The engine says that it has started only after a while; to the tab the load starts now.
    m_announced = false;
    OnStarted();
    m_announced = true;
    m_pending = url;
    m_page->BeginAnew();
    m_page->NoteInput();
    if (!m_staying)
        m_page->load(url);
}

void WebEngineTabPage::Reload()
{
    Withdraw(false);
    m_page->triggerAction(QWebEnginePage::Reload);
}

void WebEngineTabPage::Stop()
{
    m_page->triggerAction(QWebEnginePage::Stop);
    Withdraw(false);
}

void WebEngineTabPage::Back()
{
    Withdraw(false);
    m_page->triggerAction(QWebEnginePage::Back);
}

void WebEngineTabPage::Forward()
{
    Withdraw(false);
    m_page->triggerAction(QWebEnginePage::Forward);
}

bool WebEngineTabPage::CanGoBack() const
{
    return m_page->history()->canGoBack();
}

bool WebEngineTabPage::CanGoForward() const
{
    return m_page->history()->canGoForward();
}

QUrl WebEngineTabPage::GetUrl() const
{
    return m_pending.isValid() ? m_pending : m_page->url();
}

QString WebEngineTabPage::GetTitle() const
{
    const QString title = m_page->title();
    return IsAddressAsTitle(title, m_page->url()) ? QString() : title;
}

bool WebEngineTabPage::IsLoading() const
{
    return m_loading;
}

void WebEngineTabPage::Find(const QString& text, bool backward)
{
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, backward);
    m_page->findText(text, flags);
}

void WebEngineTabPage::SetZoom(double factor)
{
    m_page->setZoomFactor(factor);
}

double WebEngineTabPage::GetZoom() const
{
    return m_page->zoomFactor();
}

void WebEngineTabPage::LeaveFullScreen()
{
    m_page->triggerAction(QWebEnginePage::ExitFullScreen);
}

void WebEngineTabPage::RequestClose()
{
    if (m_closing.isActive())
        return;
    m_closeTicks = 0;
    m_closing.start();
    m_page->triggerAction(QWebEnginePage::RequestClose);
}

QWebEnginePage* WebEngineTabPage::GetEnginePage() const noexcept
{
    return m_page.get();
}

QWebEnginePage* WebEngineTabPage::MakeWindow(QWebEnginePage::WebWindowType type)
{
    auto made = std::make_unique<WebEngineTabPage>(m_profile, nullptr);
    made->m_opened = true;
    QWebEnginePage* const enginePage = made->GetEnginePage();
    const auto offer = std::make_shared<std::unique_ptr<ITabPage>>(std::move(made));
    Q_EMIT SigNewTabRequested(offer, type == QWebEnginePage::WebBrowserBackgroundTab
                                         ? NewTabKind::Background
                                         : NewTabKind::Foreground);
    return *offer ? nullptr : enginePage; // taken out of the offer: somebody has it now
}

void WebEngineTabPage::OnStarted()
{
    if (m_announced) {
        m_announced = false;
        return;
    }
    ++m_loadNumber;
    if (m_loading)
        Q_EMIT SigLoadFinished(false);
    m_loading = true;
    m_page->ForgetCertificateError();
    Q_EMIT SigLoadStarted();
}

void WebEngineTabPage::OnProgress(int percent)
{
    Q_EMIT SigProgress(percent);
    if (!m_failed || percent >= 100)
        return;
    Probe([this](const QString& errorText) {
        if (!errorText.isNull() || !m_failed || m_pending.isValid())
            return;
        m_failed = false;
        Q_EMIT SigContentArrived();
    });
}

void WebEngineTabPage::OnFinished(bool ok)
{
    if (m_announced)
        return; // the end of the load before
    if (ok) {
        m_failed = false;
        Finish(true);
        return;
    }
    // The engine also says "not ok" of pages that came with an error status, of stopped loads and of
    // downloads. Only its own error page stands for a page that could not be loaded, and names the reason.
    Probe([this](const QString& errorText) {
        if (errorText.isNull()) {
            if (m_failed) {
                m_failed = false;
                Q_EMIT SigContentArrived();
            }
            Finish(false);
            return;
        }
        static const QRegularExpression code(QStringLiteral("ERR_[A-Z0-9_]+|HTTP ERROR \\d+"));
        PageFailure failure;
        failure.detail = code.match(errorText).captured(0);
        failure.url = m_page->url();
        failure.kind = m_page->HadCertificateError(failure.url) ? PageFailure::Kind::Certificate
                                                                : KindOf(failure.detail);
        m_failed = true;
        m_pending.clear(); // the page from before is gone
        Q_EMIT SigFailed(failure);
        Finish(false);
    });
}

void WebEngineTabPage::Finish(bool ok)
{
    if (!m_loading)
        return;
    m_loading = false;
    const bool left = !m_pending.isValid();
    m_pending.clear();
    if (!left && m_shown.isValid()) {
        // The page from before stays: of another one only the address had been told.
        Q_EMIT SigUrlChanged(m_shown);
        Q_EMIT SigTitleChanged(GetTitle());
        Q_EMIT SigIconChanged(m_page->iconUrl(), m_page->icon());
    }
    Q_EMIT SigHistoryChanged();
    Q_EMIT SigLoadFinished(ok);
}

void WebEngineTabPage::OnStays()
{
    // Until the page has taken note of the answer, the engine drops whatever load it is given with the one
    // that was asked about. What the page runs now, it runs after that.
    m_staying = true;
    m_closing.stop();
    const QPointer<WebEngineTabPage> alive(this);
    const int loadNumber = m_loadNumber;
    m_page->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                          [alive, loadNumber](const QVariant&) {
                              if (!alive || !alive->m_staying)
                                  return;
                              alive->m_staying = false;
                              if (!alive->m_announced)
                                  return;
                              if (alive->m_loadNumber == loadNumber)
                                  alive->Withdraw(false);
                              else
                                  alive->m_page->load(alive->m_pending);
                          });
}

void WebEngineTabPage::Withdraw(bool ok)
{
    if (!m_announced)
        return;
    m_announced = false;
    Finish(ok);
}

void WebEngineTabPage::AskSeveralDownloads()
{
    const QPointer<WebEnginePage> page(m_page.get());
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::SeveralDownloads;
    request.origin = m_page->url();
    request.answer = [page](bool allow) {
        if (page)
            page->GetDownloadTurn().Answer(allow);
    };
    request.withdraw = [page] {
        if (page)
            page->GetDownloadTurn().Reset();
    };
    Q_EMIT SigPermissionRequested(request);
}

void WebEngineTabPage::OnPermission(const QUrl& origin, QWebEnginePage::Feature feature)
{
    PermissionRequest request;
    request.origin = origin;
    switch (feature) {
    case QWebEnginePage::Notifications:
        request.kind = PermissionRequest::Kind::Notifications;
        break;
    case QWebEnginePage::Geolocation:
        request.kind = PermissionRequest::Kind::Location;
        break;
    case QWebEnginePage::MediaAudioCapture:
        request.kind = PermissionRequest::Kind::Microphone;
        break;
    case QWebEnginePage::MediaVideoCapture:
        request.kind = PermissionRequest::Kind::Camera;
        break;
    case QWebEnginePage::MediaAudioVideoCapture:
        request.kind = PermissionRequest::Kind::CameraAndMicrophone;
        break;
    case QWebEnginePage::DesktopVideoCapture:
    case QWebEnginePage::DesktopAudioVideoCapture:
        request.kind = PermissionRequest::Kind::ScreenCapture;
        break;
    case QWebEnginePage::MouseLock:
        request.kind = PermissionRequest::Kind::MouseLock;
        break;
    }
    const QPointer<QWebEnginePage> page(m_page.get());
    request.answer = [page, origin, feature](bool allow) {
        if (page)
            page->setFeaturePermission(origin, feature,
                                       allow ? QWebEnginePage::PermissionGrantedByUser
                                             : QWebEnginePage::PermissionDeniedByUser);
    };
    // The engine remembers a refusal of these, which nobody spoke. The others wait in a line, and who does
    // not get an answer holds up those behind.
    if (feature != QWebEnginePage::Notifications && feature != QWebEnginePage::Geolocation)
        request.withdraw = [answer = request.answer] { answer(false); };
    Q_EMIT SigPermissionRequested(request);
}

void WebEngineTabPage::Probe(const std::function<void(const QString& errorText)>& done)
{
    const QPointer<WebEngineTabPage> alive(this);
    const int loadNumber = m_loadNumber;
    m_page->runJavaScript(
        QStringLiteral("location.href.startsWith('chrome-error:')"
                       " ? 'error ' + document.documentElement.innerText.slice(0, 4000) : ''"),
        QWebEngineScript::ApplicationWorld, [alive, loadNumber, done](const QVariant& answer) {
            if (!alive || alive->m_loadNumber != loadNumber)
                return;
            const QString text = answer.toString();
            done(text.isEmpty() ? QString() : text);
        });
}
