#include "BrowserTab.h"

#include "FindBar.h"
#include "MessagePage.h"
#include "PageQuestions.h"
#include "TabMessages.h"
#include "look/SymbolicIcon.h"
#include "notices/NoticeBar.h"
#include "pages/IPageFactory.h"

#include "tab-container/TabData.h"

#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

BrowserTab::BrowserTab(const TabRecord& opened, IPageFactory* pages, QObject* parent)
    : QObject(parent)
    , m_pages(pages)
    , m_face(opened)
    , m_data(QSharedPointer<TabData>::create(opened.type, GetRecord().title, GetRecord().iconUrl))
{}

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
    return GetRecord().routerUrl;
}

const TabRecord& BrowserTab::GetRecord() const noexcept
{
    return m_face.GetRecord();
}

TabRecord BrowserTab::GetReopenRecord() const
{
    return m_face.GetReopenRecord();
}

QIcon BrowserTab::GetIcon() const
{
    return IsBroken() ? SymbolicIcon::Make(QStringLiteral("warning")) : m_face.GetIcon();
}

Security BrowserTab::GetSecurity() const
{
    const QUrl& address = GetRecord().address;
    if (!m_page || m_message != Message::None || !address.isValid()) {
        return Security::None;
    }
    return address.scheme() == QLatin1String("https") ? Security::Secure : Security::NotSecure;
}

bool BrowserTab::AcceptsAddresses() const
{
    return GetRecord().type == TabType::WebPage;
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
    const TabRecord& record = GetRecord();
    if (record.delayed) {
        return;
    }
    MakeContainer(parent);
    if (content) {
        m_content = content;
        m_stack->addWidget(content);
        m_stack->setCurrentWidget(content);
    } else if (record.address.isValid()) {
        const QUrl address = record.address; // the page may change the record while it loads
        SetPage(m_pages->CreatePage(m_stack));
        m_page->Load(address);
    } else if (record.trouble != TabRecord::Trouble::None) {
        ShowMessage(Message::Trouble);
    } else if (!record.serviceCode.isEmpty()) {
        ShowMessage(Message::NativeApp);
    } else {
        ShowMessage(Message::StartPage);
    }
}

void BrowserTab::Begin(QWidget* parent, std::unique_ptr<ITabPage> page)
{
    m_face.SetDelayed(false);
    MakeContainer(parent);
    SetPage(std::move(page));
    m_shown = m_page->GetUrl();
    m_face.SetAddress(m_shown);
    m_face.SetPageTitle(m_page->GetTitle());
    Publish();
}

void BrowserTab::Wake(QWidget* parent)
{
    if (!GetRecord().delayed) {
        return;
    }
    m_face.SetDelayed(false);
    Begin(parent);
    Publish();
}

QWidget* BrowserTab::GetWidget() const noexcept
{
    return m_container;
}

void BrowserTab::FocusContent()
{
    if (m_content) {
        m_content->setFocus(Qt::OtherFocusReason);
    } else if (m_message != Message::None && m_messagePage->GetButton()->isVisible()) {
        m_messagePage->GetButton()->setFocus(Qt::OtherFocusReason);
    } else if (m_page) {
        m_page->GetWidget()->setFocus(Qt::OtherFocusReason);
    }
}

void BrowserTab::SetApp(const TabRecord& app, QWidget* parent)
{
    m_face.SetApp(app);
    if (m_data->GetType() != GetRecord().type) {
        m_data = QSharedPointer<TabData>::create(GetRecord().type, QString(), QString());
    }
    if (!GetRecord().delayed) {
        HideMessage();
        Begin(parent);
    }
    Publish();
}

void BrowserTab::Load(const QUrl& url)
{
    if (!m_page) {
        SetPage(m_pages->CreatePage(m_stack));
    }
    m_face.SetAddress(url);
    ForgetPageFace();
    if (!IsBroken()) {
        HideMessage();
    }
    m_page->Load(url);
    Publish();
}

void BrowserTab::Reload()
{
    if (!m_page) {
        return;
    }
    if (m_message == Message::Failure && m_failure.url.isValid()) {
        m_page->Load(m_failure.url);
    } else {
        m_page->Reload();
    }
}

void BrowserTab::Stop()
{
    if (m_page) {
        m_page->Stop();
    }
}

void BrowserTab::Back()
{
    if (m_page) {
        m_page->Back();
    }
}

void BrowserTab::Forward()
{
    if (m_page) {
        m_page->Forward();
    }
}

void BrowserTab::OpenFind()
{
    if (m_page && m_message == Message::None) {
        m_find->Open();
    }
}

bool BrowserTab::IsFindOpen() const
{
    return m_find && !m_find->isHidden();
}

void BrowserTab::CloseFind()
{
    if (m_find) {
        m_find->Close();
    }
}

void BrowserTab::SetZoom(double factor)
{
    m_zoom = factor;
    if (m_page) {
        m_page->SetZoom(factor);
    }
    Q_EMIT SigStateChanged();
}

void BrowserTab::LeaveFullScreen()
{
    if (m_page) {
        m_page->LeaveFullScreen();
    }
}

void BrowserTab::RequestClose()
{
    if (m_page && m_message == Message::None) {
        m_page->RequestClose();
    } else {
        Q_EMIT SigCloseRequested();
    }
}

QString BrowserTab::TakeIconRequest()
{
    return m_face.TakeIconRequest();
}

void BrowserTab::SetIcon(const QIcon& icon)
{
    m_face.SetOpenedIcon(icon);
    Q_EMIT SigStateChanged();
}

void BrowserTab::Retranslate()
{
    m_face.Retranslate();
    if (m_message != Message::None) {
        FillMessage();
    }
    if (GetRecord().title != m_data->GetTitle()) {
        Publish();
    }
}

void BrowserTab::MakeContainer(QWidget* parent)
{
    if (m_container) {
        return;
    }
    m_container = new QWidget(parent);
    m_container->hide();
    if (parent) {
        m_container->resize(parent->size());
    }
    auto* notices = new NoticeBar;
    m_questions = new PageQuestions(notices, this);
    m_find = new FindBar;
    m_stack = new QStackedWidget;
    auto* column = new QVBoxLayout(m_container);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(notices);
    column->addWidget(m_find);
    column->addWidget(m_stack, 1);

    connect(m_find, &FindBar::SigFind, this, [this](const QString& text, bool backward) {
        if (m_page) {
            m_page->Find(text, backward);
        }
    });
    connect(m_find, &FindBar::SigClosed, this, [this] {
        FocusContent();
        Q_EMIT SigStateChanged();
    });
}

void BrowserTab::SetPage(std::unique_ptr<ITabPage> page)
{
    m_page = std::move(page);
    m_stack->addWidget(m_page->GetWidget());
    m_stack->setCurrentWidget(m_page->GetWidget());

    ITabPage* const source = m_page.get();
    connect(source, &ITabPage::SigUrlChanged, this, &BrowserTab::HandleUrlChanged);
    connect(source, &ITabPage::SigTitleChanged, this, [this](const QString& title) {
        m_face.SetPageTitle(title);
        Publish();
    });
    connect(source, &ITabPage::SigIconChanged, this, [this](const QUrl& url, const QIcon& icon) {
        m_face.SetPageIcon(url, icon);
        Publish();
    });
    connect(source, &ITabPage::SigLoadStarted, this, &BrowserTab::HandleLoadStarted);
    connect(source, &ITabPage::SigProgress, this, [this](int percent) {
        m_progress = percent;
        Q_EMIT SigStateChanged();
    });
    connect(source, &ITabPage::SigFailed, this, &BrowserTab::HandleFailed);
    connect(source, &ITabPage::SigContentArrived, this, &BrowserTab::HideMessage);
    connect(source, &ITabPage::SigLoadFinished, this, &BrowserTab::HandleLoadFinished);
    connect(source, &ITabPage::SigRendererDied, this, &BrowserTab::HandleRendererDied);
    connect(source, &ITabPage::SigHistoryChanged, this, &BrowserTab::SigStateChanged);
    connect(source, &ITabPage::SigNewTabRequested, this, &BrowserTab::SigNewTabRequested);
    connect(source, &ITabPage::SigCloseRequested, this, &BrowserTab::SigCloseRequested);
    connect(source, &ITabPage::SigPermissionRequested, m_questions, &PageQuestions::AskPermission);
    connect(source, &ITabPage::SigExternalRequested, m_questions, &PageQuestions::AskExternal);
    connect(source, &ITabPage::SigBlocked, m_questions, &PageQuestions::ShowBlocked);
    connect(source, &ITabPage::SigFullScreenRequested, this, &BrowserTab::SigFullScreenRequested);
    connect(source, &ITabPage::SigFound, m_find, &FindBar::SetFound);
    connect(source, &ITabPage::SigLinkHovered, this, &BrowserTab::SigLinkHovered);
}

void BrowserTab::HandleUrlChanged(const QUrl& url)
{
    m_questions->HandleUrlChanged(url, m_shown);
    if (url.scheme() != m_shown.scheme() || url.authority() != m_shown.authority()) {
        m_face.SetPageIcon(QUrl(), QIcon());
    }
    m_shown = url;
    if (url.isValid() && url.scheme() != QLatin1String("about")) {
        m_face.SetAddress(url);
    }
    Publish();
    Q_EMIT SigStateChanged();
}

void BrowserTab::HandleLoadStarted()
{
    m_progress = 0;
    Q_EMIT SigStateChanged();
}

void BrowserTab::HandleLoadFinished(bool ok)
{
    if (ok) {
        HideMessage();
    }
    if (m_zoom != m_page->GetZoom()) {
        m_page->SetZoom(m_zoom);
    }
    Publish();
    Q_EMIT SigStateChanged();
    Q_EMIT SigLoaded(GetRecord().address, ok);
}

void BrowserTab::HandleFailed(const PageFailure& failure)
{
    m_failure = failure;
    if (failure.url.isValid()) {
        m_face.SetAddress(failure.url);
    }
    m_face.SetPageTitle(QString());
    ShowMessage(Message::Failure);
    Publish();
}

void BrowserTab::HandleRendererDied()
{
    m_questions->HandlePageGone();
    ShowMessage(Message::RendererDied);
    Publish();
    Q_EMIT SigStateChanged();
}

bool BrowserTab::IsBroken() const noexcept
{
    return m_message == Message::Failure || m_message == Message::RendererDied;
}

void BrowserTab::ShowMessage(Message message)
{
    if (!m_messagePage) {
        m_messagePage = new MessagePage;
        m_stack->addWidget(m_messagePage);
        connect(m_messagePage, &MessagePage::SigButtonClicked, this, &BrowserTab::Reload);
    }
    m_message = message;
    FillMessage();
    m_find->Close();
    m_stack->setCurrentWidget(m_messagePage);
}

void BrowserTab::HideMessage()
{
    if (m_message == Message::None) {
        return;
    }
    const bool hadFocus = m_messagePage->isAncestorOf(m_container->focusWidget());
    m_message = Message::None;
    if (m_page) {
        m_stack->setCurrentWidget(m_page->GetWidget());
    }
    if (hadFocus && m_container->isVisible()) {
        FocusContent();
    }
    Publish();
    Q_EMIT SigStateChanged();
}

void BrowserTab::FillMessage()
{
    switch (m_message) {
    case Message::None:
        return;
    case Message::StartPage:
        m_messagePage->SetContent(TabMessages::MakeStartPage());
        return;
    case Message::NativeApp:
        m_messagePage->SetContent(TabMessages::MakeNativeApp(GetRecord()));
        return;
    case Message::RendererDied:
        m_messagePage->SetContent(TabMessages::MakeRendererDied(GetRecord().address));
        return;
    case Message::Failure:
        m_messagePage->SetContent(TabMessages::MakeFailure(m_failure));
        return;
    case Message::Trouble:
        m_messagePage->SetContent(TabMessages::MakeTrouble(GetRecord()));
        return;
    }
}

void BrowserTab::ForgetPageFace()
{
    m_face.SetPageTitle(QString());
    m_face.SetPageIcon(QUrl(), QIcon());
}

void BrowserTab::Publish()
{
    m_data->SetTitle(GetRecord().title);
    m_data->SetIconUrl(GetRecord().iconUrl);
    Q_EMIT SigChanged();
}
