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
        if (code.startsWith(QLatin1String(entry.prefix))) {
            return entry.kind;
        }
    }
    return PageFailure::Kind::Unknown;
}

/// Until a page has a title, the engine gives its address as one.
bool IsAddressAsTitle(const QString& title, const QUrl& url)
{
    const QUrl asUrl = QUrl::fromUserInput(title);
    return asUrl.isValid() && asUrl.host() == url.host() && asUrl.path().size() <= url.path().size() + 1 &&
           (title.startsWith(url.host()) || title.contains(QLatin1String("://")));
}

} // namespace

WebEngineTabPage::WebEngineTabPage(QWebEngineProfile* profile, QWidget* parent)
    : m_profile(profile)
    , m_page(std::make_unique<WebEnginePage>(
          profile, [this](QWebEnginePage::WebWindowType type) { return MakeWindow(type); }))
    , m_view(new WebEngineView(parent))
    , m_closeWait([] { return QApplication::activeModalWidget() != nullptr; })
{
    m_view->setPage(m_page.get());
    m_view->setObjectName(QStringLiteral("web_view"));
    ConnectLoad();
    ConnectLook();
    ConnectRequests();
}

WebEngineTabPage::~WebEngineTabPage()
{
    m_page->disconnect(this);
    // While it ends, the page still answers what it was asked: nobody is left to tell.
    m_load.End();
    delete m_view;
    WebEnginePage::End(std::move(m_page));
}

void WebEngineTabPage::ConnectLoad()
{
    QWebEnginePage* const page = m_page.get();
    connect(page, &QWebEnginePage::loadStarted, this, [this] { Do(m_load.HandleStarted()); });
    connect(page, &QWebEnginePage::loadProgress, this, [this](int percent) {
        Q_EMIT SigProgress(percent);
        Do(m_load.HandleProgress(percent));
    });
    connect(page, &QWebEnginePage::loadFinished, this, [this](bool ok) { Do(m_load.HandleFinished(ok)); });
    connect(page, &QWebEnginePage::urlChanged, this, &WebEngineTabPage::OnAddress);
    connect(page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                if (status != QWebEnginePage::NormalTerminationStatus) {
                    Do(m_load.HandleRendererDied());
                }
            });
    connect(m_page.get(), &WebEnginePage::SigStays, this, &WebEngineTabPage::OnStays);
}

void WebEngineTabPage::ConnectLook()
{
    QWebEnginePage* const page = m_page.get();
    connect(page, &QWebEnginePage::titleChanged, this, [this](const QString& title) {
        Q_EMIT SigTitleChanged(IsAddressAsTitle(title, m_page->url()) ? QString() : title);
    });
    const auto tellIcon = [this] { Q_EMIT SigIconChanged(m_page->iconUrl(), m_page->icon()); };
    connect(page, &QWebEnginePage::iconUrlChanged, this, tellIcon);
    connect(page, &QWebEnginePage::iconChanged, this, tellIcon);
    connect(page, &QWebEnginePage::linkHovered, this, &ITabPage::SigLinkHovered);
    connect(page, &QWebEnginePage::findTextFinished, this,
            [this](const QWebEngineFindTextResult& result) { Q_EMIT SigFound(result.numberOfMatches()); });
    connect(page, &QWebEnginePage::fullScreenRequested, this, [this](QWebEngineFullScreenRequest request) {
        if (request.toggleOn() && !m_view->isVisible()) {
            request.reject();
            return;
        }
        request.accept();
        Q_EMIT SigFullScreenRequested(request.toggleOn());
    });
}

void WebEngineTabPage::ConnectRequests()
{
    WebEnginePage* const page = m_page.get();
    connect(page, &QWebEnginePage::windowCloseRequested, this, [this] {
        m_closeWait.End();
        Q_EMIT SigCloseRequested();
    });
    connect(&m_closeWait, &CloseWait::SigExpired, this, &ITabPage::SigCloseRequested);
    connect(page, &QWebEnginePage::featurePermissionRequested, this, &WebEngineTabPage::OnPermission);
    connect(page, &WebEnginePage::SigExternalRequested, this, &ITabPage::SigExternalRequested);
    connect(page, &WebEnginePage::SigBlocked, this, &ITabPage::SigBlocked);
    connect(page, &WebEnginePage::SigSeveralDownloads, this, &WebEngineTabPage::AskSeveralDownloads);
    // Later, as the engine is still with the page.
    connect(
        page, &WebEnginePage::SigBecameDownload, this,
        [this] {
            if (m_isPopUp && m_page->history()->count() == 0) {
                Q_EMIT SigCloseRequested(); // opened for the download alone
            }
        },
        Qt::QueuedConnection);
    connect(m_view, &WebEngineView::SigInput, page, &WebEnginePage::NoteInput);
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
    m_page->ForgetChoices();
    m_page->NoteInput();
    // The engine says that it has started only after a while; to the tab the load starts now.
    Do(m_load.Ask(url));
}

void WebEngineTabPage::Reload()
{
    Do(m_load.Withdraw());
    m_page->triggerAction(QWebEnginePage::Reload);
}

void WebEngineTabPage::Stop()
{
    m_page->triggerAction(QWebEnginePage::Stop);
    Do(m_load.Withdraw());
}

void WebEngineTabPage::Back()
{
    Do(m_load.Withdraw());
    m_page->triggerAction(QWebEnginePage::Back);
}

void WebEngineTabPage::Forward()
{
    Do(m_load.Withdraw());
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
    return m_load.GetAsked().isEmpty() ? m_page->url() : m_load.GetAsked();
}

QString WebEngineTabPage::GetTitle() const
{
    const QString title = m_page->title();
    return IsAddressAsTitle(title, m_page->url()) ? QString() : title;
}

bool WebEngineTabPage::IsLoading() const
{
    return m_load.IsLoading();
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
    if (m_closeWait.IsRunning()) {
        return;
    }
    m_closeWait.Begin();
    m_page->triggerAction(QWebEnginePage::RequestClose);
}

QWebEnginePage* WebEngineTabPage::GetEnginePage() const noexcept
{
    return m_page.get();
}

QWebEnginePage* WebEngineTabPage::MakeWindow(QWebEnginePage::WebWindowType type)
{
    auto made = std::make_unique<WebEngineTabPage>(m_profile, nullptr);
    made->m_isPopUp = true;
    QWebEnginePage* const enginePage = made->GetEnginePage();
    const auto offer = std::make_shared<std::unique_ptr<ITabPage>>(std::move(made));
    Q_EMIT SigNewTabRequested(offer, type == QWebEnginePage::WebBrowserBackgroundTab
                                         ? NewTabKind::Background
                                         : NewTabKind::Foreground);
    return *offer ? nullptr : enginePage; // an empty offer: somebody has taken the page
}

void WebEngineTabPage::Do(const PageLoad::Effects& effects, const QString& errorText)
{
    const QPointer<WebEngineTabPage> alive(this);
    for (const PageLoad::Effect effect : effects) {
        if (alive) {
            Do(effect, errorText);
        }
    }
}

void WebEngineTabPage::Do(PageLoad::Effect effect, const QString& errorText)
{
    const int number = m_load.GetNumber();
    switch (effect) {
    case PageLoad::Effect::GiveToEngine:
        if (m_load.GetStage() == PageLoad::Stage::Asked) { // nobody who was told of it has stopped it
            m_page->load(m_load.GetAsked());
        }
        break;
    case PageLoad::Effect::AskReason:
        // The engine also says "not ok" of pages that came with an error status, of stopped loads and of
        // downloads. Only its own error page means a page that could not be loaded, and names the
        // reason.
        AskDocument(
            [this, number](const QString& text) { Do(m_load.HandleReason(number, !text.isNull()), text); });
        break;
    case PageLoad::Effect::LookForContent:
        AskDocument([this, number](const QString& text) {
            if (text.isNull()) {
                Do(m_load.HandleContent(number));
            }
        });
        break;
    case PageLoad::Effect::TellStarted:
        m_page->ForgetCertificateError();
        Q_EMIT SigLoadStarted();
        break;
    case PageLoad::Effect::TellFinishedOk:
        Q_EMIT SigLoadFinished(true);
        break;
    case PageLoad::Effect::TellFinishedNotOk:
        Q_EMIT SigLoadFinished(false);
        break;
    case PageLoad::Effect::TellFailed:
        Q_EMIT SigFailed(ReadFailure(errorText));
        break;
    case PageLoad::Effect::TellContent:
        Q_EMIT SigContentArrived();
        break;
    case PageLoad::Effect::TellAddress:
        Q_EMIT SigUrlChanged(m_load.GetShown());
        break;
    case PageLoad::Effect::TellPageBefore:
        Q_EMIT SigUrlChanged(m_load.GetShown());
        Q_EMIT SigTitleChanged(GetTitle());
        Q_EMIT SigIconChanged(m_page->iconUrl(), m_page->icon());
        break;
    case PageLoad::Effect::TellHistory:
        Q_EMIT SigHistoryChanged();
        break;
    case PageLoad::Effect::TellRendererDied:
        Q_EMIT SigRendererDied();
        break;
    }
}

PageFailure WebEngineTabPage::ReadFailure(const QString& errorText) const
{
    static const QRegularExpression code(QStringLiteral("ERR_[A-Z0-9_]+|HTTP ERROR \\d+"));
    PageFailure failure;
    failure.detail = code.match(errorText).captured(0);
    failure.url = m_page->url();
    failure.kind =
        m_page->HadCertificateError(failure.url) ? PageFailure::Kind::Certificate : KindOf(failure.detail);
    return failure;
}

void WebEngineTabPage::OnAddress(const QUrl& url)
{
    if (RequestGate::IsWeb(url) || url.isEmpty() || url.scheme() == QLatin1String("about") ||
        url.scheme() == QLatin1String("blob")) {
        Do(m_load.HandleAddress(url));
    }
}

void WebEngineTabPage::OnStays()
{
    m_closeWait.End();
    Do(m_load.HandleStay());
    // What the page runs now, it runs after it has taken note of the answer.
    AskDocument([this](const QString&) { Do(m_load.HandleStayNoted()); });
}

void WebEngineTabPage::AskSeveralDownloads()
{
    const QPointer<WebEnginePage> page(m_page.get());
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::SeveralDownloads;
    request.origin = m_page->url();
    request.answer = [page](bool allow) {
        if (page) {
            page->GetDownloadTurn().Answer(allow);
        }
    };
    request.withdraw = [page] {
        if (page) {
            page->GetDownloadTurn().Reset();
        }
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
        if (page) {
            page->setFeaturePermission(origin, feature,
                                       allow ? QWebEnginePage::PermissionGrantedByUser
                                             : QWebEnginePage::PermissionDeniedByUser);
        }
    };
    // Of these the engine would remember a refusal, and the user refused nothing. The others wait in a line,
    // where one that gets no answer holds up those behind it.
    if (feature != QWebEnginePage::Notifications && feature != QWebEnginePage::Geolocation) {
        request.withdraw = [answer = request.answer] { answer(false); };
    }
    Q_EMIT SigPermissionRequested(request);
}

void WebEngineTabPage::AskDocument(const std::function<void(const QString& errorText)>& handle)
{
    const QPointer<WebEngineTabPage> alive(this);
    m_page->runJavaScript(
        QStringLiteral("location.href.startsWith('chrome-error:')"
                       " ? 'error ' + document.documentElement.innerText.slice(0, 4000) : ''"),
        QWebEngineScript::ApplicationWorld, [alive, handle](const QVariant& answer) {
            if (alive) {
                const QString text = answer.toString();
                handle(text.isEmpty() ? QString() : text);
            }
        });
}
