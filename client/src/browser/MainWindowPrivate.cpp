#include "MainWindowPrivate.h"

#include "BrowserTab.h"
#include "DownloadNotices.h"
#include "HomePage.h"
#include "HoverLabel.h"
#include "PageStack.h"
#include "TabButton.h"
#include "TabOpening.h"
#include "TabStrip.h"
#include "Toolbar.h"
#include "WindowMenu.h"
#include "look/ScaledWidget.h"
#include "notices/NoticeBar.h"
#include "pages/AddressInput.h"
#include "pages/IDownload.h"
#include "pages/IPageFactory.h"

#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TabOpenInfo.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr QSize Smallest(480, 320); // [px]
constexpr int ProgressHeight = 2;   // [px]
constexpr int LeastProgress = 5;    // that is shown of a page that has just begun [%]
constexpr int LongestTyped = 200;   // that a message repeats [characters]
constexpr int LongestTitle = 100;   // of a page's notification [characters]
constexpr int LongestText = 300;    // likewise
const QString AddressNotice = QStringLiteral("refused-address");

TabStripItem MakeItem(const BrowserTab& tab)
{
    TabStripItem item;
    item.title = tab.GetRecord().title;
    item.icon = tab.GetIcon();
    item.closable = tab.GetRecord().closable;
    item.loading = tab.IsLoading();
    return item;
}

/// Without user name and password, which are not for others.
QString ToText(const QUrl& address)
{
    return QString::fromLatin1(address.adjusted(QUrl::RemoveUserInfo).toEncoded());
}

} // namespace

MainWindowPrivate::MainWindowPrivate(MainWindow* window, const MainWindowServices& services)
    : m_window(window)
    , m_services(services)
    , m_strip(new TabStrip)
    , m_toolbar(new Toolbar)
    , m_progress(new QProgressBar)
    , m_notices(new NoticeBar)
    , m_pages(new PageStack)
    , m_downloads(new DownloadNotices(
          m_notices, [this](const QString& proposal) { return AskDownloadPath(proposal); }, this))
    , m_tabs({services.pages, services.apps, services.loadPicture}, m_pages)
    , m_actions(window)
    , m_commands(&m_tabs, &m_actions, services.apps, window)
    , m_menu(new WindowMenu(m_actions, window))
    , m_fullScreen(window, {m_strip, m_toolbar, m_progress})
    , m_geometry(window, &m_fullScreen, services.loadGeometry, services.saveGeometry)
{
    MakeWidgets();
    ConnectStrip();
    ConnectToolbar();
    ConnectList();
    ConnectTabs();
    ConnectPages();
    ConnectActions();
    ConnectMenu();

    auto* home = new HomePage(m_services.userName, m_services.apps, m_services.loadPicture);
    connect(home, &HomePage::SigAppChosen, &m_commands, &TabCommands::OpenApp);
    m_tabs.OpenHome(home);
    ShowCurrent(false, true);
    m_tabs.GetCurrentTab()->FocusContent();
    Retranslate();
    m_geometry.Restore();
}

MainWindowPrivate::~MainWindowPrivate() = default;

const OpenTabs& MainWindowPrivate::GetTabs() const noexcept
{
    return m_tabs;
}

const TabList& MainWindowPrivate::GetList() const noexcept
{
    return m_tabs.GetList();
}

NoticeBar* MainWindowPrivate::GetNoticeBar() const noexcept
{
    return m_notices;
}

WindowMenu* MainWindowPrivate::GetMenu() const noexcept
{
    return m_menu;
}

void MainWindowPrivate::OpenUrl(const TabOpenInfo& info, int index)
{
    m_tabs.OpenAsked(TabOpening::MakeWebRecord(info), index, info.activate);
}

void MainWindowPrivate::OpenPlugin(const PluginOpenInfo& info, int index)
{
    m_tabs.OpenAsked(TabOpening::MakeAppRecord(info, m_services.apps), index,
                     info.activation == QLatin1String("1"));
}

void MainWindowPrivate::OpenStartTab()
{
    m_commands.OpenStartTab();
}

void MainWindowPrivate::SetOpenDelayed(bool on)
{
    m_tabs.SetOpenDelayed(on);
}

void MainWindowPrivate::BeginReopening(const MainWindow::TabClaim& claim)
{
    m_tabs.GetQueue().Begin(claim, MainWindow::ReopenedAtOnce);
}

void MainWindowPrivate::EndReopening()
{
    m_tabs.GetQueue().End();
}

void MainWindowPrivate::Select(int index)
{
    BrowserTab* const before = m_tabs.GetCurrentTab();
    BrowserTab* const tab = m_tabs.GetTab(index);
    if (!tab) {
        return;
    }
    if (tab != before && m_fullScreen.IsOn()) {
        before->LeaveFullScreen();
    }
    const bool focusContent = !IsStripFocused();
    const bool changed = m_tabs.Select(index);
    if (!changed) {
        m_strip->SetCurrent(index); // it may be scrolled out of sight
    }
    ShowCurrent(changed, focusContent);
}

void MainWindowPrivate::Move(int from, int to)
{
    m_tabs.Move(from, to);
}

void MainWindowPrivate::Close(int index)
{
    if (!m_tabs.GetTab(index) || index == 0 || m_tabs.HasEnded()) {
        return;
    }
    const bool wasCurrent = index == GetList().GetCurrent();
    if (wasCurrent) {
        SetFullScreen(false);
    }
    // Asked now: the focus moves on when the widget that has it goes.
    const bool stripFocused = IsStripFocused();
    m_tabs.Close(index);
    if (wasCurrent) {
        ShowCurrent(true, !stripFocused);
        TabButton* const button = m_strip->GetButton(GetList().GetCurrent());
        if (stripFocused && button) {
            button->setFocus(Qt::OtherFocusReason);
        }
    }
    UpdateActions();
    Q_EMIT m_window->SigTabClosed(index);
    m_tabs.CheckIdle();
}

void MainWindowPrivate::CloseAll()
{
    SetFullScreen(false);
    while (m_strip->GetCount() > 1) {
        m_strip->Remove(m_strip->GetCount() - 1);
    }
    m_tabs.CloseAll();
    m_strip->SetCurrent(0);
    m_hover->hide();
    UpdateToolbar();
    UpdateActions();
}

void MainWindowPrivate::SetCloseGuard(const std::function<bool()>& guard)
{
    m_closeGuard = guard;
}

bool MainWindowPrivate::AgreeToClose()
{
    if (m_closeGuard && !m_closeGuard()) {
        return false;
    }
    m_geometry.Store();
    return true;
}

void MainWindowPrivate::HandleMoved()
{
    m_geometry.HandleChange();
}

void MainWindowPrivate::HandleResized()
{
    m_geometry.HandleChange();
    m_hover->Place();
}

void MainWindowPrivate::Retranslate()
{
    m_progress->setAccessibleName(tr("Loading"));
    m_actions.Retranslate();
    m_menu->Retranslate();
    m_tabs.Retranslate();
    UpdateToolbar();
}

void MainWindowPrivate::AdjustForDpi()
{
    m_progress->setFixedHeight(Scaled(ProgressHeight));
    m_window->setMinimumSize(ScaledToScreen(m_window, Smallest));
}

void MainWindowPrivate::MakeWidgets()
{
    auto* central = new QWidget;
    central->setObjectName(QStringLiteral("main_window_content"));
    m_progress->setObjectName(QStringLiteral("load_progress"));
    m_progress->setTextVisible(false);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_strip);
    column->addWidget(m_toolbar);
    column->addWidget(m_progress);
    column->addWidget(m_notices);
    column->addWidget(m_pages, 1);
    m_window->setCentralWidget(central);
    m_hover = new HoverLabel(central);
    AdjustForDpi();
}

void MainWindowPrivate::ConnectStrip()
{
    connect(m_strip, &TabStrip::SigSelectRequested, this, &MainWindowPrivate::Select);
    connect(m_strip, &TabStrip::SigCloseRequested, &m_commands, &TabCommands::RequestClose);
    connect(m_strip, &TabStrip::SigMoveRequested, this, &MainWindowPrivate::Move);
    connect(m_strip, &TabStrip::SigNewTabRequested, &m_commands, &TabCommands::OpenStartTab);
    connect(m_strip, &TabStrip::SigListRequested, &m_commands, &TabCommands::ShowTabList);
    connect(m_strip, &TabStrip::SigSeenChanged, this, &MainWindowPrivate::FetchIcons);
    connect(m_strip, &TabStrip::SigContextMenuRequested, &m_commands, &TabCommands::ShowTabMenu);
}

void MainWindowPrivate::ConnectToolbar()
{
    connect(m_toolbar, &Toolbar::SigBack, m_actions.Get(WindowAction::Back), &QAction::trigger);
    connect(m_toolbar, &Toolbar::SigForward, m_actions.Get(WindowAction::Forward), &QAction::trigger);
    connect(m_toolbar, &Toolbar::SigReload, m_actions.Get(WindowAction::Reload), &QAction::trigger);
    connect(m_toolbar, &Toolbar::SigStop, this, [this] { m_tabs.GetCurrentTab()->Stop(); });
    connect(m_toolbar, &Toolbar::SigAddressEntered, this, &MainWindowPrivate::EnterAddress);
    connect(m_toolbar, &Toolbar::SigMenuRequested, m_menu, &WindowMenu::PopUpBelow);
}

void MainWindowPrivate::ConnectList()
{
    const TabList* const list = &GetList();
    connect(list, &TabList::SigInserted, this,
            [this](int index) { m_strip->Insert(index, MakeItem(*m_tabs.GetTab(index))); });
    connect(list, &TabList::SigRemoved, m_strip, &TabStrip::Remove);
    connect(list, &TabList::SigMoved, m_strip, &TabStrip::Move);
    connect(list, &TabList::SigCurrentChanged, m_strip, &TabStrip::SetCurrent);
    connect(list, &TabList::SigMoved, m_window, &MainWindow::SigTabMoved);
    connect(list, &TabList::SigChanged, m_window, &MainWindow::SigTabChanged);
}

void MainWindowPrivate::ConnectTabs()
{
    connect(&m_tabs, &OpenTabs::SigOpened, this, &MainWindowPrivate::HandleOpened);
    connect(&m_tabs, &OpenTabs::SigSelectRequested, this, &MainWindowPrivate::Select);
    connect(&m_tabs, &OpenTabs::SigCloseRequested, this, &MainWindowPrivate::Close);
    connect(&m_tabs, &OpenTabs::SigLooksChanged, this, &MainWindowPrivate::HandleLooksChanged);
    connect(&m_tabs, &OpenTabs::SigPageLoaded, m_window, [this](int index, const QUrl& url, bool ok) {
        Q_EMIT m_window->SigPageLoaded(index, ToText(url), ok);
    });
    connect(&m_tabs, &OpenTabs::SigFullScreenRequested, this, &MainWindowPrivate::HandleFullScreenRequested);
    connect(&m_tabs, &OpenTabs::SigLinkHovered, this, [this](int index, const QString& address) {
        if (index == GetList().GetCurrent()) {
            m_hover->ShowAddress(address);
        }
    });
    connect(&m_tabs, &OpenTabs::SigIconsWanted, this, &MainWindowPrivate::FetchIcons);
    connect(&m_tabs, &OpenTabs::SigIdle, m_window, &MainWindow::SigIdle);
}

void MainWindowPrivate::ConnectPages()
{
    if (m_services.pages) {
        connect(m_services.pages, &IPageFactory::SigDownloadRequested, m_downloads,
                &DownloadNotices::HandleDownload);
        connect(m_services.pages, &IPageFactory::SigNotification, this, &MainWindowPrivate::ShowNotification);
    }
}

void MainWindowPrivate::ConnectActions()
{
    m_actions.Connect(WindowAction::Escape, this, [this] { Escape(); });
    m_actions.Connect(WindowAction::TypeAddress, this, [this] { m_toolbar->StartTyping(); });
    m_actions.Connect(WindowAction::OpenMenu, this, [this] {
        m_toolbar->ClickMenu();
        m_menu->setActiveAction(m_actions.Get(WindowAction::NewTab));
    });
    m_actions.Connect(WindowAction::LogOut, this, [this] { Q_EMIT m_window->SigLogOutRequested(); });
    m_actions.Connect(WindowAction::Quit, this, [this] { m_window->close(); });
    connect(&m_commands, &TabCommands::SigSelectRequested, this, &MainWindowPrivate::Select);
    // A tab that stays unloaded is not selected, but the user sees where it came back.
    connect(&m_commands, &TabCommands::SigReopened, m_strip, &TabStrip::Reveal);
}

void MainWindowPrivate::ConnectMenu()
{
    m_menu->SetTheme(m_services.theme);
    m_menu->SetLanguage(m_services.language);
    connect(m_menu, &WindowMenu::SigThemeChosen, m_window, &MainWindow::SigThemeChosen);
    connect(m_menu, &WindowMenu::SigLanguageChosen, m_window, &MainWindow::SigLanguageChosen);
}

void MainWindowPrivate::HandleOpened(int index)
{
    UpdateActions();
    const TabRecord record = GetList().GetRecord(index);
    Q_EMIT m_window->SigTabOpened(index, ToText(record.address), record.routerUrl, record.type,
                                  record.delayed);
}

void MainWindowPrivate::HandleLooksChanged(int index)
{
    m_strip->SetItem(index, MakeItem(*m_tabs.GetTab(index)));
    if (index == GetList().GetCurrent()) {
        UpdateToolbar();
    }
}

void MainWindowPrivate::HandleFullScreenRequested(int index, bool on)
{
    if (!on || index == GetList().GetCurrent()) {
        SetFullScreen(on);
    }
}

void MainWindowPrivate::EnterAddress(const QString& text)
{
    if (text.trimmed().isEmpty()) {
        return;
    }
    const QUrl url = AddressInput::ToUrl(text);
    if (!url.isValid()) {
        m_notices->Show(AddressNotice, NoticeKind::Warning,
                        tr("“%1” was not opened. This client opens only web addresses, such as shop.example "
                           "or https://shop.example, without a user name or password.")
                            .arg(text.simplified().left(LongestTyped)));
        m_toolbar->StartTyping();
        return;
    }
    m_notices->Hide(AddressNotice);
    BrowserTab* const tab = m_tabs.GetCurrentTab();
    if (tab->AcceptsAddresses()) {
        tab->Load(url);
        tab->FocusContent();
        return;
    }
    // Home and apps keep what they show.
    m_toolbar->ShowAddress();
    TabRecord record;
    record.address = url;
    m_tabs.Open(record, -1, true);
}

void MainWindowPrivate::ShowCurrent(bool changed, bool focusContent)
{
    const int index = GetList().GetCurrent();
    BrowserTab* const tab = m_tabs.GetCurrentTab();
    m_hover->hide();
    m_tabs.Show(index);
    if (tab->IsStartPage()) {
        m_toolbar->StartTyping();
    } else if (changed && focusContent) {
        tab->FocusContent();
    }
    m_notices->Hide(AddressNotice);
    UpdateToolbar();
    UpdateActions();
    if (changed) {
        Q_EMIT m_window->SigTabSelected(index);
    }
}

bool MainWindowPrivate::IsStripFocused() const
{
    return m_strip->isAncestorOf(m_window->focusWidget());
}

void MainWindowPrivate::Escape()
{
    BrowserTab* const tab = m_tabs.GetCurrentTab();
    if (m_fullScreen.IsOn()) {
        tab->LeaveFullScreen();
    } else if (tab->IsFindOpen()) {
        tab->CloseFind();
    } else {
        tab->Stop();
    }
}

void MainWindowPrivate::SetFullScreen(bool on)
{
    if (m_fullScreen.Set(on)) {
        UpdateToolbar();
    }
}

void MainWindowPrivate::ShowNotification(const QUrl& origin, const QString& title, const QString& text)
{
    m_notices->Show(
        QStringLiteral("notification/") + origin.host(), NoticeKind::Info,
        QStringLiteral("%1: %2 %3")
            .arg(AddressInput::ToDisplayHost(origin), title.left(LongestTitle), text.left(LongestText)));
}

QString MainWindowPrivate::AskDownloadPath(const QString& proposal)
{
    return QFileDialog::getSaveFileName(m_window, tr("Save file"), proposal);
}

void MainWindowPrivate::FetchIcons()
{
    // Of the tabs in sight only: a thousand reopened tabs are no reason for a thousand requests.
    m_tabs.FetchIcons(m_strip->GetFirstSeen(), m_strip->GetLastSeen());
}

void MainWindowPrivate::UpdateToolbar()
{
    const BrowserTab* const tab = m_tabs.GetCurrentTab();
    Toolbar::State state;
    state.address = tab->GetRecord().address;
    state.security = tab->GetSecurity();
    state.canGoBack = tab->CanGoBack();
    state.canGoForward = tab->CanGoForward();
    state.canReload = tab->HasPage();
    state.loading = tab->IsLoading();
    m_toolbar->SetState(state);
    m_actions.SetEnabled(WindowAction::Back, state.canGoBack);
    m_actions.SetEnabled(WindowAction::Forward, state.canGoForward);
    for (const WindowAction action : {WindowAction::Reload, WindowAction::Find, WindowAction::ZoomIn,
                                      WindowAction::ZoomOut, WindowAction::ActualSize}) {
        m_actions.SetEnabled(action, tab->HasPage());
    }
    m_actions.SetEnabled(WindowAction::Escape, state.loading || m_fullScreen.IsOn() || tab->IsFindOpen());
    // The line keeps its room, so that pages do not jump; it only shows while there is something to show.
    m_progress->setValue(state.loading ? qMax(LeastProgress, tab->GetProgress()) : 0);
    const QString name = QGuiApplication::applicationDisplayName();
    m_window->setWindowTitle(
        GetList().GetCurrent() == 0 ? name : QStringLiteral("%1 – %2").arg(tab->GetRecord().title, name));
}

void MainWindowPrivate::UpdateActions()
{
    const int current = GetList().GetCurrent();
    m_actions.SetEnabled(WindowAction::CloseTab, current > 0 && GetList().GetRecord(current).closable);
    m_actions.SetEnabled(WindowAction::ReopenTab, GetList().HasClosed());
    m_actions.SetEnabled(WindowAction::NewTab, !m_tabs.HasEnded());
}
