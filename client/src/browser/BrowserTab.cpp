#include "BrowserTab.h"

#include "FindBar.h"
#include "MessagePage.h"
#include "browser/TabRouterUrls.h"
#include "look/SymbolicIcon.h"
#include "notices/NoticeBar.h"
#include "pages/AddressInput.h"
#include "pages/IPageFactory.h"

#include "base/VXRouterProtocol.h"
#include "tab-container/TabData.h"

#include <QtGui/QDesktopServices>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int LongestIconUrl = 2048; // that is kept with a tab [characters]

/// Not so for what a page made by itself (blob:), which is gone with it.
bool IsOfTheWeb(const QUrl& address)
{
    return address.isValid() &&
           (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"));
}

} // namespace

BrowserTab::BrowserTab(const TabRecord& origin, IPageFactory* pages, QObject* parent)
    : QObject(parent)
    , m_origin(origin)
    , m_pages(pages)
    , m_address(origin.address)
    , m_routerUrl(MakeRouterUrl(origin, origin.address))
    , m_iconRequest(GetIconUrl())
    , m_delayed(origin.delayed)
{
    m_data = QSharedPointer<TabData>::create(origin.type, GetTitle(), GetIconUrl());
}

BrowserTab::~BrowserTab()
{
    // The page before the container that its widget stands in.
    m_page.reset();
    delete m_container;
}

QSharedPointer<TabData> BrowserTab::GetTabData() const
{
    return m_data;
}

QString BrowserTab::GetRouterUrl() const
{
    return m_routerUrl;
}

QString BrowserTab::MakeRouterUrl(const TabRecord& origin, const QUrl& address)
{
    if (!origin.remember)
        return {};
    if (!origin.serviceCode.isEmpty())
        return VXRouterProtocol(TabRouterUrls::PluginOpen)
            .With(QStringLiteral("code"), origin.serviceCode)
            .GetUrl();
    if (!IsOfTheWeb(address))
        return {};
    return VXRouterProtocol(TabRouterUrls::BrowserOpen)
        .With(QStringLiteral("url"), QString::fromLatin1(address.adjusted(QUrl::RemoveUserInfo).toEncoded()))
        .GetUrl();
}

TabRecord BrowserTab::GetOrigin() const
{
    TabRecord origin = m_origin;
    origin.title = GetOwnTitle();
    const QString iconUrl = GetIconUrl();
    if (iconUrl != origin.appIconUrl)
        origin.iconUrl = iconUrl;
    if (IsOfTheWeb(m_address)) {
        origin.address = m_address;
        origin.trouble = TabRecord::Trouble::None;
    }
    origin.delayed = m_delayed;
    return origin;
}

int BrowserTab::GetType() const
{
    return m_data->GetType();
}

QString BrowserTab::GetServiceCode() const
{
    return m_origin.serviceCode;
}

bool BrowserTab::IsClosable() const noexcept
{
    return m_origin.closable;
}

QString BrowserTab::GetTitle() const
{
    if (m_origin.type == TabType::Home)
        return tr("Home");
    QString own = GetOwnTitle();
    if (!own.isEmpty())
        return own;
    if (!m_origin.appName.isEmpty())
        return m_origin.appName;
    if (m_address.isValid())
        return m_address.host();
    switch (m_origin.trouble) {
    case TabRecord::Trouble::RefusedAddress:
        return tr("Address not opened");
    case TabRecord::Trouble::UnknownApp:
        return tr("Unknown app");
    case TabRecord::Trouble::RefusedAppAddress:
        return tr("App not opened");
    case TabRecord::Trouble::None:
        break;
    }
    return m_origin.serviceCode.isEmpty() ? tr("New tab") : m_origin.serviceCode;
}

QIcon BrowserTab::GetIcon() const
{
    if (m_origin.type == TabType::Home)
        return SymbolicIcon::Make(QStringLiteral("home"));
    if (m_message == Message::Failure || m_message == Message::RendererDied)
        return SymbolicIcon::Make(QStringLiteral("warning"));
    if (!m_pageIcon.isNull())
        return m_pageIcon;
    if (!m_originIcon.isNull() && IsAtOrigin())
        return m_originIcon;
    if (m_origin.trouble != TabRecord::Trouble::None && !m_address.isValid())
        return SymbolicIcon::Make(QStringLiteral("blocked"));
    return SymbolicIcon::Make(m_origin.serviceCode.isEmpty() ? QStringLiteral("globe")
                                                             : QStringLiteral("app"));
}

QUrl BrowserTab::GetAddress() const
{
    return m_address;
}

Security BrowserTab::GetSecurity() const
{
    if (!m_page || m_message != Message::None || !m_address.isValid())
        return Security::None;
    return m_address.scheme() == QLatin1String("https") ? Security::Secure : Security::NotSecure;
}

bool BrowserTab::TakesAddresses() const
{
    return m_origin.type == TabType::WebPage;
}

bool BrowserTab::IsDelayed() const noexcept
{
    return m_delayed;
}

bool BrowserTab::IsAppUnknown() const noexcept
{
    return m_origin.trouble == TabRecord::Trouble::UnknownApp;
}

bool BrowserTab::IsStartPage() const
{
    return m_message == Message::StartPage;
}

bool BrowserTab::HasPage() const noexcept
{
    return m_page != nullptr;
}

bool BrowserTab::IsLoading() const
{
    return m_page && m_page->IsLoading();
}

int BrowserTab::GetProgress() const noexcept
{
    return m_progress;
}

bool BrowserTab::CanGoBack() const
{
    return m_page && m_page->CanGoBack();
}

bool BrowserTab::CanGoForward() const
{
    return m_page && m_page->CanGoForward();
}

double BrowserTab::GetZoom() const
{
    return m_zoom;
}

void BrowserTab::Begin(QWidget* parent, QWidget* content)
{
    if (m_delayed)
        return;
    MakeContainer(parent);
    if (content) {
        m_content = content;
        m_stack->addWidget(content);
        m_stack->setCurrentWidget(content);
    } else if (m_address.isValid()) {
        MakePage();
        m_page->Load(m_address);
    } else if (m_origin.trouble != TabRecord::Trouble::None) {
        ShowMessage(Message::Trouble);
    } else if (!m_origin.serviceCode.isEmpty()) {
        ShowMessage(Message::NativeApp);
    } else {
        ShowMessage(Message::StartPage);
    }
}

void BrowserTab::Begin(QWidget* parent, std::unique_ptr<ITabPage> page)
{
    m_delayed = false;
    MakeContainer(parent);
    TakePage(std::move(page));
    m_shown = m_page->GetUrl();
    SetAddress(m_shown);
    m_pageTitle = m_page->GetTitle();
    UpdateData();
}

void BrowserTab::Wake(QWidget* parent)
{
    if (!m_delayed)
        return;
    m_delayed = false;
    Begin(parent);
}

QWidget* BrowserTab::GetWidget() const noexcept
{
    return m_container;
}

void BrowserTab::FocusContent()
{
    if (m_content)
        m_content->setFocus(Qt::OtherFocusReason);
    else if (m_message != Message::None && m_messagePage->GetButton()->isVisible())
        m_messagePage->GetButton()->setFocus(Qt::OtherFocusReason);
    else if (m_page)
        m_page->GetWidget()->setFocus(Qt::OtherFocusReason);
}

void BrowserTab::SetApp(const TabRecord& origin, QWidget* parent)
{
    const QString iconBefore = GetIconUrl();
    if (origin.trouble == TabRecord::Trouble::UnknownApp) {
        // It may come back: what is known of it stays.
        m_origin.trouble = origin.trouble;
        m_origin.address.clear();
    } else {
        m_origin.type = origin.type;
        m_origin.appName = origin.appName;
        m_origin.appIconUrl = origin.appIconUrl;
        m_origin.address = origin.address;
        m_origin.trouble = origin.trouble;
        m_origin.text = origin.text;
    }
    SetAddress(m_origin.address);
    if (m_data->GetType() != m_origin.type)
        m_data = QSharedPointer<TabData>::create(m_origin.type, QString(), QString());
    if (GetIconUrl() != iconBefore) {
        m_originIcon = QIcon();
        m_iconRequest = GetIconUrl();
    }
    if (!m_delayed) {
        HideMessage();
        Begin(parent);
    }
    UpdateData();
}

void BrowserTab::Load(const QUrl& url)
{
    if (!m_page)
        MakePage();
    SetAddress(url);
    m_pageTitle.clear();
    m_pageIcon = QIcon();
    m_pageIconUrl.clear();
    if (m_message != Message::Failure && m_message != Message::RendererDied)
        HideMessage();
    m_page->Load(url);
    UpdateData();
}

void BrowserTab::Reload()
{
    if (!m_page)
        return;
    if (m_message == Message::Failure && m_failure.url.isValid())
        m_page->Load(m_failure.url);
    else
        m_page->Reload();
}

void BrowserTab::Stop()
{
    if (m_page)
        m_page->Stop();
}

void BrowserTab::Back()
{
    if (m_page)
        m_page->Back();
}

void BrowserTab::Forward()
{
    if (m_page)
        m_page->Forward();
}

void BrowserTab::OpenFind()
{
    if (m_page && m_message == Message::None)
        m_find->Open();
}

bool BrowserTab::IsFindOpen() const
{
    return m_find && !m_find->isHidden();
}

void BrowserTab::CloseFind()
{
    if (m_find)
        m_find->Close();
}

void BrowserTab::SetZoom(double factor)
{
    m_zoom = factor;
    if (m_page)
        m_page->SetZoom(factor);
    Q_EMIT SigStateChanged();
}

void BrowserTab::LeaveFullScreen()
{
    if (m_page)
        m_page->LeaveFullScreen();
}

void BrowserTab::RequestClose()
{
    if (m_page && m_message == Message::None)
        m_page->RequestClose();
    else
        Q_EMIT SigCloseRequested();
}

QString BrowserTab::TakeIconRequest()
{
    QString request = m_iconRequest;
    m_iconRequest.clear();
    return request;
}

void BrowserTab::SetIcon(const QIcon& icon)
{
    m_originIcon = icon;
    Q_EMIT SigStateChanged();
}

void BrowserTab::Retranslate()
{
    if (m_message != Message::None)
        FillMessage();
    if (GetTitle() != m_data->GetTitle())
        UpdateData();
}

void BrowserTab::MakeContainer(QWidget* parent)
{
    if (m_container)
        return;
    m_container = new QWidget(parent);
    m_container->hide();
    if (parent)
        m_container->resize(parent->size());
    m_notices = new NoticeBar;
    m_find = new FindBar;
    m_stack = new QStackedWidget;
    auto* column = new QVBoxLayout(m_container);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_notices);
    column->addWidget(m_find);
    column->addWidget(m_stack, 1);

    connect(m_find, &FindBar::SigFind, this, [this](const QString& text, bool backward) {
        if (m_page)
            m_page->Find(text, backward);
    });
    connect(m_find, &FindBar::SigClosed, this, [this] {
        FocusContent();
        Q_EMIT SigStateChanged();
    });
}

void BrowserTab::MakePage()
{
    TakePage(m_pages->CreatePage(m_stack));
}

void BrowserTab::TakePage(std::unique_ptr<ITabPage> page)
{
    m_page = std::move(page);
    m_stack->addWidget(m_page->GetWidget());
    m_stack->setCurrentWidget(m_page->GetWidget());

    ITabPage* const source = m_page.get();
    connect(source, &ITabPage::SigUrlChanged, this, [this](const QUrl& url) {
        m_notices->Hide(QStringLiteral("blocked"));
        // A link of its own may ask for another program and change the place in the page.
        if (!url.matches(m_shown, QUrl::RemoveFragment))
            m_notices->Hide(QStringLiteral("external"));
        if (url.scheme() != m_shown.scheme() || url.authority() != m_shown.authority()) {
            DropQuestions();
            m_pageIcon = QIcon();
            m_pageIconUrl.clear();
        }
        m_shown = url;
        if (url.isValid() && url.scheme() != QLatin1String("about"))
            SetAddress(url);
        UpdateData();
        Q_EMIT SigStateChanged();
    });
    connect(source, &ITabPage::SigTitleChanged, this, [this](const QString& title) {
        m_pageTitle = title.simplified().left(500);
        UpdateData();
    });
    connect(source, &ITabPage::SigIconChanged, this, [this](const QUrl& url, const QIcon& icon) {
        m_pageIconUrl = url;
        m_pageIcon = icon;
        UpdateData();
    });
    connect(source, &ITabPage::SigLoadStarted, this, [this] {
        m_progress = 0;
        Q_EMIT SigChanged();
        Q_EMIT SigStateChanged();
    });
    connect(source, &ITabPage::SigProgress, this, [this](int percent) {
        m_progress = percent;
        Q_EMIT SigStateChanged();
    });
    connect(source, &ITabPage::SigFailed, this, [this](const PageFailure& failure) {
        m_failure = failure;
        if (failure.url.isValid())
            SetAddress(failure.url);
        m_pageTitle.clear();
        ShowMessage(Message::Failure);
        UpdateData();
    });
    connect(source, &ITabPage::SigContentArrived, this, [this] { HideMessage(); });
    connect(source, &ITabPage::SigLoadFinished, this, [this](bool ok) {
        if (ok)
            HideMessage();
        if (m_zoom != m_page->GetZoom())
            m_page->SetZoom(m_zoom);
        UpdateData();
        Q_EMIT SigStateChanged();
        Q_EMIT SigLoaded(m_address, ok);
    });
    connect(source, &ITabPage::SigRendererDied, this, [this] {
        DropQuestions();
        m_notices->Hide(QStringLiteral("external"));
        ShowMessage(Message::RendererDied);
        UpdateData();
        Q_EMIT SigStateChanged();
    });
    connect(source, &ITabPage::SigHistoryChanged, this, &BrowserTab::SigStateChanged);
    connect(source, &ITabPage::SigNewTabRequested, this, &BrowserTab::SigNewTabRequested);
    connect(source, &ITabPage::SigCloseRequested, this, &BrowserTab::SigCloseRequested);
    connect(source, &ITabPage::SigPermissionRequested, this, &BrowserTab::AskPermission);
    connect(source, &ITabPage::SigExternalRequested, this, &BrowserTab::AskExternal);
    connect(source, &ITabPage::SigBlocked, this, [this](const QUrl& url) {
        m_notices->Show(QStringLiteral("blocked"), NoticeKind::Warning,
                        tr("The page wanted to go to an address that this client does not open: %1")
                            .arg(url.toDisplayString().left(200)));
    });
    connect(source, &ITabPage::SigFullScreenRequested, this, &BrowserTab::SigFullScreenRequested);
    connect(source, &ITabPage::SigFound, m_find, &FindBar::SetFound);
    connect(source, &ITabPage::SigLinkHovered, this, &BrowserTab::SigLinkHovered);
}

void BrowserTab::ShowMessage(Message message)
{
    if (!m_messagePage) {
        m_messagePage = new MessagePage;
        m_stack->addWidget(m_messagePage);
        connect(m_messagePage, &MessagePage::SigButtonClicked, this, &BrowserTab::ClickMessage);
    }
    m_message = message;
    FillMessage();
    m_find->Close();
    m_stack->setCurrentWidget(m_messagePage);
}

void BrowserTab::HideMessage()
{
    if (m_message == Message::None)
        return;
    const bool hadFocus = m_messagePage->isAncestorOf(m_container->focusWidget());
    m_message = Message::None;
    if (m_page)
        m_stack->setCurrentWidget(m_page->GetWidget());
    if (hadFocus && m_container->isVisible())
        FocusContent();
    Q_EMIT SigChanged();
    Q_EMIT SigStateChanged();
}

void BrowserTab::FillMessage()
{
    const QString none;
    switch (m_message) {
    case Message::None:
        return;
    case Message::StartPage:
        m_messagePage->SetContent(QStringLiteral("globe"), tr("New tab"),
                                  tr("Type a web address above and press Enter."), none, none, none);
        return;
    case Message::NativeApp:
        m_messagePage->SetContent(
            QStringLiteral("app"), GetTitle(),
            tr("This app is a program of its own and has no web address. This client has no such program."),
            none, tr("App: %1").arg(m_origin.serviceCode), none);
        return;
    case Message::RendererDied:
        m_messagePage->SetContent(QStringLiteral("crashed"), tr("This page has stopped working"),
                                  tr("The process that shows the page ended unexpectedly. Other tabs are not "
                                     "affected. What was typed into the page may be lost."),
                                  AddressInput::ToDisplay(m_address), none, tr("Reload"));
        return;
    case Message::Failure:
        FillFailure();
        return;
    case Message::Trouble:
        break;
    }
    switch (m_origin.trouble) {
    case TabRecord::Trouble::UnknownApp:
        m_messagePage->SetContent(
            QStringLiteral("blocked"), tr("Unknown app"),
            tr("The list of apps has no app with this key. It may have been taken away from your account."),
            m_origin.serviceCode, none, none);
        return;
    case TabRecord::Trouble::RefusedAppAddress:
        m_messagePage->SetContent(
            QStringLiteral("blocked"), tr("This app cannot be opened"),
            tr("Its address is not one that this client opens. It opens only web addresses "
               "that begin with http:// or https://."),
            m_origin.text, tr("App: %1").arg(m_origin.serviceCode), none);
        return;
    case TabRecord::Trouble::RefusedAddress:
    case TabRecord::Trouble::None:
        m_messagePage->SetContent(
            QStringLiteral("blocked"), tr("This address was not opened"),
            m_origin.text.trimmed().isEmpty()
                ? tr("The address is empty.")
                : tr("This client opens only web addresses that begin with http:// or https:// and "
                     "contain no user name or password."),
            m_origin.text, none, none);
        return;
    }
}

void BrowserTab::FillFailure()
{
    const QString host = m_failure.url.host();
    QString icon = QStringLiteral("unplugged");
    QString headline = tr("This page could not be loaded");
    QString text;
    switch (m_failure.kind) {
    case PageFailure::Kind::HostNotFound:
        headline = tr("The site was not found");
        text = tr("There is no site named “%1”. Check the address for typing errors.").arg(host);
        break;
    case PageFailure::Kind::ConnectionRefused:
        headline = tr("The site refused the connection");
        text = tr("“%1” was reached, but nothing answers there. The site may be down for a while.").arg(host);
        break;
    case PageFailure::Kind::TimedOut:
        headline = tr("The site took too long to answer");
        text = tr("“%1” may be busy or out of reach. Try again in a moment.").arg(host);
        break;
    case PageFailure::Kind::Certificate:
        icon = QStringLiteral("not-secure");
        headline = tr("The connection is not safe");
        text = tr("No safe connection to “%1” could be made: its certificate is not valid, or it does not "
                  "speak the "
                  "encryption that is needed. The page was not loaded. If this is a site of your company, "
                  "tell its "
                  "operator.")
                   .arg(host);
        break;
    case PageFailure::Kind::NoNetwork:
        headline = tr("There is no network connection");
        text = tr("Check the network cable or the wireless connection, then try again.");
        break;
    case PageFailure::Kind::ConnectionLost:
        headline = tr("The connection broke off");
        text = tr("“%1” ended the connection before the page was complete, or sent something that is no web "
                  "page.")
                   .arg(host);
        break;
    case PageFailure::Kind::TooManyRedirects:
        headline = tr("The page leads in a circle");
        text = tr("“%1” sent the client on and on without ever showing a page.").arg(host);
        break;
    case PageFailure::Kind::HttpError:
        icon = QStringLiteral("warning");
        headline = tr("The site reported an error");
        text = tr("“%1” was reached, but cannot show this page.").arg(host);
        break;
    case PageFailure::Kind::Blocked:
        icon = QStringLiteral("blocked");
        headline = tr("This address was not opened");
        text = tr("The client does not connect to this address.");
        break;
    case PageFailure::Kind::Unknown:
        text = tr("“%1” could not be shown. Try again in a moment.").arg(host);
        break;
    }
    m_messagePage->SetContent(icon, headline, text, AddressInput::ToDisplay(m_failure.url), m_failure.detail,
                              tr("Try again"));
}

void BrowserTab::ClickMessage()
{
    Reload();
}

bool BrowserTab::IsAtOrigin() const
{
    return m_address == m_origin.address || !m_origin.serviceCode.isEmpty();
}

QString BrowserTab::GetOwnTitle() const
{
    if (!m_pageTitle.isEmpty())
        return m_pageTitle;
    return IsAtOrigin() ? m_origin.title : QString();
}

QString BrowserTab::GetIconUrl() const
{
    QString icon = QString::fromLatin1(m_pageIconUrl.toEncoded());
    // An icon may also stand in its own address, and be as large as it likes.
    const bool keepable = m_pageIconUrl.scheme().startsWith(QLatin1String("http"));
    if (keepable && icon.size() <= LongestIconUrl)
        return icon;
    if (!IsAtOrigin())
        return {};
    return m_origin.iconUrl.isEmpty() ? m_origin.appIconUrl : m_origin.iconUrl;
}

void BrowserTab::SetAddress(const QUrl& address)
{
    if (address == m_address)
        return;
    m_address = address;
    if (IsOfTheWeb(address))
        m_routerUrl = MakeRouterUrl(m_origin, address);
}

void BrowserTab::UpdateData()
{
    m_data->SetTitle(GetTitle());
    m_data->SetIconUrl(GetIconUrl());
    Q_EMIT SigChanged();
}

void BrowserTab::AskPermission(const PermissionRequest& request)
{
    const QString host = AddressInput::ToDisplayHost(request.origin);
    QString text;
    switch (request.kind) {
    case PermissionRequest::Kind::Location:
        text = tr("%1 wants to know where you are.");
        break;
    case PermissionRequest::Kind::Notifications:
        text = tr("%1 wants to show notifications.");
        break;
    case PermissionRequest::Kind::Microphone:
        text = tr("%1 wants to use the microphone.");
        break;
    case PermissionRequest::Kind::Camera:
        text = tr("%1 wants to use the camera.");
        break;
    case PermissionRequest::Kind::CameraAndMicrophone:
        text = tr("%1 wants to use camera and microphone.");
        break;
    case PermissionRequest::Kind::ScreenCapture:
        text = tr("%1 wants to record the screen.");
        break;
    case PermissionRequest::Kind::MouseLock:
        text = tr("%1 wants to hide the mouse pointer.");
        break;
    case PermissionRequest::Kind::SeveralDownloads:
        text = tr("%1 wants to save several files.");
        break;
    }
    // A page and a frame of another site in it may ask for the same; each waits for its own answer.
    const QString id =
        QStringLiteral("permission/%1/%2").arg(static_cast<int>(request.kind)).arg(request.origin.toString());
    m_permissions << qMakePair(id, request);
    m_notices->Show(id, NoticeKind::Info, text.arg(host),
                    {{tr("Allow"), [this, id] { AnswerPermission(id, true); }},
                     {tr("Do not allow"), [this, id] { AnswerPermission(id, false); }}},
                    [this, id] { AnswerPermission(id, false); });
}

void BrowserTab::AnswerPermission(const QString& id, bool allow)
{
    // Who asks again before the answer is there gets one, too.
    const auto asked = m_permissions;
    const auto isOfBar = [&id](const auto& question) { return question.first == id; };
    m_permissions.erase(std::remove_if(m_permissions.begin(), m_permissions.end(), isOfBar),
                        m_permissions.end());
    for (const auto& question : asked) {
        if (isOfBar(question))
            question.second.answer(allow);
    }
}

void BrowserTab::DropQuestions()
{
    const auto asked = std::exchange(m_permissions, {});
    for (const auto& question : asked) {
        m_notices->Hide(question.first);
        if (question.second.withdraw)
            question.second.withdraw();
    }
}

void BrowserTab::AskExternal(const QUrl& url)
{
    m_notices->Show(QStringLiteral("external"), NoticeKind::Info,
                    tr("The page wants to open another program: %1").arg(url.toDisplayString().left(200)),
                    {{tr("Open"), [url] { QDesktopServices::openUrl(url); }}, {tr("Cancel"), {}}});
}
