#include "MainWindowPrivate.h"

#include "AddressBar.h"
#include "BrowserTab.h"
#include "DownloadNotices.h"
#include "HomePage.h"
#include "TabButton.h"
#include "TabListPopup.h"
#include "TabStrip.h"
#include "look/LanguageManager.h"
#include "look/ScaledWidget.h"
#include "look/SymbolicIcon.h"
#include "notices/NoticeBar.h"
#include "pages/AddressInput.h"
#include "pages/IDownload.h"
#include "pages/IPageFactory.h"

#include "frame-data/TLPluginBaseEntity.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TLUrlUtils.h"
#include "tab-container/TabData.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

constexpr int GeometryDelay = 500;  // after the last move before it is stored [ms]
constexpr int MostClosed = 25;      // tabs that can be reopened
constexpr QSize Roomy(1280, 840);   // [px]
constexpr QSize Smallest(480, 320); // [px]
const QString AddressNotice = QStringLiteral("refused-address");

constexpr double ZoomSteps[] = {0.25, 0.5, 0.67, 0.75, 0.8, 0.9, 1.0, 1.1,
                                1.25, 1.5, 1.75, 2.0,  2.5, 3.0, 4.0, 5.0};

QToolButton* MakeToolButton(const QString& name, const QString& icon)
{
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setProperty("tool", true);
    button->setIcon(SymbolicIcon::Make(icon));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void Name(QToolButton* button, const QString& name, const QString& toolTip)
{
    button->setAccessibleName(name);
    button->setToolTip(toolTip);
}

} // namespace

MainWindowPrivate::MainWindowPrivate(MainWindow* window, const MainWindowServices& services)
    : m_window(window), m_services(services)
{
    MakeWidgets();
    MakeActions();
    MakeMenu();

    m_geometryTimer.setSingleShot(true);
    m_geometryTimer.setInterval(GeometryDelay);
    connect(&m_geometryTimer, &QTimer::timeout, this, &MainWindowPrivate::StoreGeometry);
    m_frontTurn.setSingleShot(true);
    connect(&m_frontTurn, &QTimer::timeout, this, &MainWindowPrivate::LoadWaiting);

    m_downloads = new DownloadNotices(
        m_notices, [this](const QString& proposal) { return AskDownloadPath(proposal); }, this);
    if (m_services.pages) {
        connect(m_services.pages, &IPageFactory::SigDownloadRequested, m_downloads, &DownloadNotices::Take);
        connect(m_services.pages, &IPageFactory::SigNotification, this,
                [this](const QUrl& origin, const QString& title, const QString& text) {
                    m_notices->Show(
                        QStringLiteral("notification/") + origin.host(), NoticeKind::Info,
                        QStringLiteral("%1: %2 %3")
                            .arg(AddressInput::ToDisplayHost(origin), title.left(100), text.left(300)));
                });
    }
    if (m_services.apps)
        connect(m_services.apps, &TLPluginBaseManager::SigPluginsChanged, this,
                &MainWindowPrivate::ResolveApps);

    TabRecord home;
    home.type = TabType::Home;
    home.closable = false;
    home.remember = false;
    auto* homePage = new HomePage(m_services.userName, m_services.apps, m_services.loadPicture);
    connect(homePage, &HomePage::SigAppChosen, this, &MainWindowPrivate::OpenApp);
    auto tab = std::make_unique<BrowserTab>(home, m_services.pages);
    tab->Begin(m_pages, homePage);
    Insert(std::move(tab), 0);
    m_pages->addWidget(m_tabs.front()->GetWidget());
    Select(0);
    m_tabs.front()->FocusContent();
    Retranslate();
    RestoreGeometry();
}

MainWindowPrivate::~MainWindowPrivate()
{
    m_ended = true;
    m_tabs.clear();
}

void MainWindowPrivate::MakeWidgets()
{
    auto* central = new QWidget;
    central->setObjectName(QStringLiteral("main_window_content"));
    m_strip = new TabStrip;
    m_toolbar = new QWidget;
    m_toolbar->setObjectName(QStringLiteral("toolbar"));
    m_toolbar->setAttribute(Qt::WA_StyledBackground);
    m_backButton = MakeToolButton(QStringLiteral("back_button"), QStringLiteral("back"));
    m_forwardButton = MakeToolButton(QStringLiteral("forward_button"), QStringLiteral("forward"));
    m_reloadButton = MakeToolButton(QStringLiteral("reload_button"), QStringLiteral("reload"));
    m_menuButton = MakeToolButton(QStringLiteral("menu_button"), QStringLiteral("menu"));
    m_address = new AddressBar;
    m_progress = new QProgressBar;
    m_progress->setObjectName(QStringLiteral("load_progress"));
    m_progress->setTextVisible(false);
    m_notices = new NoticeBar;
    m_pages = new QStackedWidget;
    m_pages->setObjectName(QStringLiteral("pages"));
    m_waiting = new QWidget;
    m_pages->addWidget(m_waiting);

    auto* row = new QHBoxLayout(m_toolbar);
    row->addWidget(m_backButton);
    row->addWidget(m_forwardButton);
    row->addWidget(m_reloadButton);
    m_addressRoom = new QHBoxLayout;
    m_addressRoom->addWidget(m_address);
    row->addLayout(m_addressRoom, 1);
    row->addWidget(m_menuButton);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_strip);
    column->addWidget(m_toolbar);
    column->addWidget(m_progress);
    column->addWidget(m_notices);
    column->addWidget(m_pages, 1);
    m_window->setCentralWidget(central);
    AdjustForDpi();

    m_hover = new QLabel(central);
    m_hover->setObjectName(QStringLiteral("hover_address"));
    m_hover->setTextFormat(Qt::PlainText);
    m_hover->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_hover->hide();

    connect(m_strip, &TabStrip::SigSelectRequested, this, &MainWindowPrivate::Select);
    connect(m_strip, &TabStrip::SigCloseRequested, this, &MainWindowPrivate::RequestClose);
    connect(m_strip, &TabStrip::SigMoveRequested, this, &MainWindowPrivate::Move);
    connect(m_strip, &TabStrip::SigNewTabRequested, this, &MainWindowPrivate::OpenStartTab);
    connect(m_strip, &TabStrip::SigListRequested, this, &MainWindowPrivate::ShowTabList);
    connect(m_strip, &TabStrip::SigSeenChanged, this, &MainWindowPrivate::FetchIcons);
    connect(m_strip, &TabStrip::SigContextMenuRequested, this, &MainWindowPrivate::ShowTabMenu);
    connect(m_address, &AddressBar::SigEntered, this, &MainWindowPrivate::EnterAddress);
}

void MainWindowPrivate::AdjustForDpi()
{
    for (QToolButton* button : {m_backButton, m_forwardButton, m_reloadButton, m_menuButton}) {
        button->setIconSize(ScaledSquare(20));
        button->setFixedSize(ScaledSquare(36));
    }
    m_toolbar->layout()->setContentsMargins(Scaled(QMargins(8, 6, 8, 6)));
    m_toolbar->layout()->setSpacing(Scaled(4));
    m_addressRoom->setContentsMargins(Scaled(4), 0, Scaled(4), 0);
    m_progress->setFixedHeight(Scaled(2));
    m_window->setMinimumSize(ScaledToScreen(m_window, Smallest));
}

QAction* MainWindowPrivate::AddAction(const QList<QKeySequence>& keys, const std::function<void()>& act)
{
    auto* action = new QAction(m_window);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, act);
    m_window->addAction(action);
    return action;
}

void MainWindowPrivate::MakeActions()
{
    m_newTab = AddAction({QKeySequence(Qt::CTRL + Qt::Key_T)}, [this] { OpenStartTab(); });
    m_closeTab = AddAction({QKeySequence(Qt::CTRL + Qt::Key_W), QKeySequence(Qt::CTRL + Qt::Key_F4)},
                           [this] { RequestClose(m_current); });
    m_reopenTab = AddAction({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_T)}, [this] { ReopenClosed(); });
    m_find = AddAction({QKeySequence(Qt::CTRL + Qt::Key_F)}, [this] { GetCurrentTab()->OpenFind(); });
    m_zoomIn = AddAction({QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)},
                         [this] { Zoom(1); });
    m_zoomOut = AddAction({QKeySequence(Qt::CTRL + Qt::Key_Minus)}, [this] { Zoom(-1); });
    m_zoomReset = AddAction({QKeySequence(Qt::CTRL + Qt::Key_0)}, [this] { Zoom(0); });
    m_back = AddAction({QKeySequence(Qt::ALT + Qt::Key_Left), QKeySequence(Qt::Key_Back)},
                       [this] { GetCurrentTab()->Back(); });
    m_forward = AddAction({QKeySequence(Qt::ALT + Qt::Key_Right), QKeySequence(Qt::Key_Forward)},
                          [this] { GetCurrentTab()->Forward(); });
    m_reload = AddAction({QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL + Qt::Key_R)},
                         [this] { GetCurrentTab()->Reload(); });
    m_escape = AddAction({QKeySequence(Qt::Key_Escape)}, [this] { Escape(); });
    m_logOut = AddAction({}, [this] { Q_EMIT m_window->SigLogOutRequested(); });
    m_quit = AddAction({QKeySequence(Qt::CTRL + Qt::Key_Q)}, [this] { m_window->close(); });

    AddAction({QKeySequence(Qt::CTRL + Qt::Key_L), QKeySequence(Qt::Key_F6)},
              [this] { m_address->StartTyping(); });
    AddAction({QKeySequence(Qt::CTRL + Qt::Key_Tab), QKeySequence(Qt::CTRL + Qt::Key_PageDown)},
              [this] { SelectNext(1); });
    AddAction({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Tab),
               QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Backtab), QKeySequence(Qt::CTRL + Qt::Key_PageUp)},
              [this] { SelectNext(-1); });
    AddAction({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_PageUp)},
              [this] { Move(m_current, m_current - 1); });
    AddAction({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_PageDown)},
              [this] { Move(m_current, m_current + 1); });
    AddAction({QKeySequence(Qt::Key_F10), QKeySequence(Qt::ALT + Qt::Key_F)}, [this] {
        m_menuButton->click();
        m_menu->setActiveAction(m_newTab);
    });
    for (int number = 1; number <= 9; ++number) {
        AddAction({QKeySequence(int(Qt::CTRL) + Qt::Key_0 + number)},
                  [this, number] { Select(number == 9 ? GetCount() - 1 : number - 1); });
    }

    connect(m_backButton, &QToolButton::clicked, m_back, &QAction::trigger);
    connect(m_forwardButton, &QToolButton::clicked, m_forward, &QAction::trigger);
    connect(m_reloadButton, &QToolButton::clicked, this, [this] {
        if (GetCurrentTab()->IsLoading())
            GetCurrentTab()->Stop();
        else
            GetCurrentTab()->Reload();
    });
}

void MainWindowPrivate::MakeMenu()
{
    m_menu = new QMenu(m_window);
    m_menu->setObjectName(QStringLiteral("main_menu"));
    m_menu->addAction(m_newTab);
    m_menu->addAction(m_reopenTab);
    m_tabGap = m_menu->addSeparator();
    m_menu->addAction(m_find);
    m_zoomMenu = m_menu->addMenu(QString());
    m_zoomMenu->addAction(m_zoomIn);
    m_zoomMenu->addAction(m_zoomOut);
    m_zoomMenu->addAction(m_zoomReset);
    m_menu->addSeparator();
    m_themeMenu = m_menu->addMenu(QString());
    m_themes = new QActionGroup(this);
    for (const Theme theme : {Theme::FollowSystem, Theme::Light, Theme::Dark}) {
        QAction* action = m_themeMenu->addAction(QString());
        action->setCheckable(true);
        action->setData(static_cast<int>(theme));
        action->setChecked(theme == m_services.theme);
        m_themes->addAction(action);
    }
    connect(m_themes, &QActionGroup::triggered, this, [this](QAction* action) {
        Q_EMIT m_window->SigThemeChosen(static_cast<Theme>(action->data().toInt()));
    });
    m_languageMenu = m_menu->addMenu(QString());
    m_languages = new QActionGroup(this);
    const QStringList languages = LanguageManager::GetLanguages();
    for (const QString& language : languages) {
        // Each by its own name, whatever is being spoken now.
        QAction* action = m_languageMenu->addAction(
            language == QLatin1String("zh_CN") ? QStringLiteral("简体中文") : QStringLiteral("English"));
        action->setCheckable(true);
        action->setData(language);
        action->setChecked(language == m_services.language);
        m_languages->addAction(action);
    }
    connect(m_languages, &QActionGroup::triggered, this,
            [this](QAction* action) { Q_EMIT m_window->SigLanguageChosen(action->data().toString()); });
    m_menuGap = m_menu->addSeparator();
    m_menu->addAction(m_logOut);
    m_menu->addAction(m_quit);

    // Right edge under right edge, so that the menu does not hang out of the window.
    connect(m_menuButton, &QToolButton::clicked, this, [this] {
        const QPoint corner = m_menuButton->mapToGlobal(m_menuButton->rect().bottomRight());
        m_menu->popup(QPoint(corner.x() - m_menu->sizeHint().width() + 1, corner.y() + Scaled(4)));
    });
}

int MainWindowPrivate::GetCount() const noexcept
{
    return static_cast<int>(m_tabs.size());
}

BrowserTab* MainWindowPrivate::GetTab(int index) const
{
    return index >= 0 && index < GetCount() ? m_tabs[static_cast<std::size_t>(index)].get() : nullptr;
}

int MainWindowPrivate::IndexOf(const BrowserTab* tab) const
{
    const auto it =
        std::find_if(m_tabs.begin(), m_tabs.end(), [tab](const auto& held) { return held.get() == tab; });
    return it == m_tabs.end() ? -1 : static_cast<int>(it - m_tabs.begin());
}

BrowserTab* MainWindowPrivate::GetCurrentTab() const
{
    return GetTab(m_current);
}

void MainWindowPrivate::OpenAsked(TabRecord origin, int index, bool activate)
{
    const std::optional<TabRecord> claimed =
        m_claim ? m_claim(BrowserTab::MakeRouterUrl(origin, origin.address)) : std::nullopt;
    if (claimed && origin.title.isEmpty()) {
        origin.title = claimed->title;
        if (origin.iconUrl.isEmpty()) {
            origin.iconUrl = claimed->iconUrl;
        }
    }
    bool waits = false;
    if (m_openDelayed) {
        origin.delayed = true;
        activate = false;
    } else if (claimed && !origin.delayed && !activate) {
        origin.delayed = true;
        waits = m_toLoad > 0;
        m_toLoad -= waits ? 1 : 0;
    }
    const QPointer<BrowserTab> tab = AddTab(origin, index, activate);
    if (waits)
        m_waitingTabs.push_back(tab);
}

QPointer<BrowserTab> MainWindowPrivate::AddTab(const TabRecord& origin, int index, bool activate)
{
    auto tab = std::make_unique<BrowserTab>(origin, m_services.pages);
    const QPointer<BrowserTab> added = tab.get();
    const int place = Insert(std::move(tab), index);
    added->Begin(m_pages);
    Announce(place, activate);
    return added;
}

int MainWindowPrivate::Insert(std::unique_ptr<BrowserTab> tab, int index)
{
    // Nothing stands before the home tab.
    const int count = GetCount();
    const int place = count == 0 ? 0 : index < 0 || index > count ? count : qMax(1, index);
    BrowserTab* const added = tab.get();
    m_tabs.insert(m_tabs.begin() + place, std::move(tab));
    if (count > 0 && place <= m_current)
        ++m_current;
    TabStripItem item;
    item.title = added->GetTitle();
    item.icon = added->GetIcon();
    item.closable = added->IsClosable();
    m_strip->Insert(place, item);
    ConnectTab(added);
    return place;
}

void MainWindowPrivate::Announce(int index, bool activate)
{
    BrowserTab* const tab = GetTab(index);
    if (QWidget* widget = tab->GetWidget())
        m_pages->addWidget(widget);
    UpdateActions();
    Q_EMIT m_window->SigTabOpened(
        index, QString::fromLatin1(tab->GetAddress().adjusted(QUrl::RemoveUserInfo).toEncoded()),
        tab->GetRouterUrl(), tab->GetType(), tab->IsDelayed());
    const int now = IndexOf(tab); // a receiver may have opened, moved or closed tabs
    if (activate && now >= 0)
        Select(now);
}

void MainWindowPrivate::ConnectTab(BrowserTab* tab)
{
    connect(tab, &BrowserTab::SigChanged, this, [this, tab] {
        const int index = IndexOf(tab);
        if (index < 0)
            return;
        UpdateStrip(index);
        if (index == m_current)
            UpdateToolbar();
        Q_EMIT m_window->SigTabChanged(index);
    });
    connect(tab, &BrowserTab::SigStateChanged, this, [this, tab] {
        const int index = IndexOf(tab);
        if (index < 0)
            return;
        UpdateStrip(index);
        if (index == m_current)
            UpdateToolbar();
        m_wasLoading = m_wasLoading || tab->IsLoading();
    });
    connect(tab, &BrowserTab::SigLoaded, this, [this, tab](const QUrl& url, bool ok) {
        const int index = IndexOf(tab);
        if (index < 0)
            return;
        Q_EMIT m_window->SigPageLoaded(
            index, QString::fromLatin1(url.adjusted(QUrl::RemoveUserInfo).toEncoded()), ok);
        if (tab == GetCurrentTab() && m_frontTurn.isActive()) {
            m_frontTurn.stop();
            LoadWaiting();
        }
        CheckIdle();
    });
    connect(tab, &BrowserTab::SigNewTabRequested, this,
            [this, tab](const std::shared_ptr<std::unique_ptr<ITabPage>>& page, ITabPage::NewTabKind kind) {
                TakeNewTab(tab, page, kind);
            });
    connect(tab, &BrowserTab::SigCloseRequested, this, [this, tab] { Close(IndexOf(tab)); });
    connect(tab, &BrowserTab::SigFullScreenRequested, this, [this, tab](bool on) {
        if (!on || tab == GetCurrentTab())
            SetFullScreen(on);
    });
    connect(tab, &BrowserTab::SigLinkHovered, this, [this, tab](const QString& address) {
        if (tab != GetCurrentTab())
            return;
        m_hover->setText(m_hover->fontMetrics().elidedText(address, Qt::ElideMiddle, m_window->width() / 2));
        m_hover->setVisible(!address.isEmpty());
        PlaceHoverLabel();
    });
}

void MainWindowPrivate::TakeNewTab(BrowserTab* opener,
                                   const std::shared_ptr<std::unique_ptr<ITabPage>>& offer,
                                   ITabPage::NewTabKind kind)
{
    if (m_ended)
        return;
    TabRecord origin;
    auto tab = std::make_unique<BrowserTab>(origin, m_services.pages);
    tab->Begin(m_pages, std::move(*offer));
    BrowserTab* const child = tab.get();
    const bool inFront = kind == ITabPage::NewTabKind::Foreground;
    int place = IndexOf(opener) + 1;
    while (!inFront && place < GetCount() && m_openers.value(GetTab(place)) == opener)
        ++place; // what one page opens aside stands in the order in which it was opened
    place = Insert(std::move(tab), place);
    Announce(place, inFront);
    if (IndexOf(child) >= 0)
        m_openers.insert(child, opener);
}

void MainWindowPrivate::FetchIcons()
{
    // Of the tabs in sight only: a thousand reopened tabs are no reason for a thousand requests.
    if (!m_services.loadPicture)
        return;
    for (int i = m_strip->GetFirstSeen(); i <= m_strip->GetLastSeen(); ++i) {
        BrowserTab* const tab = GetTab(i);
        const QString url = tab ? tab->TakeIconRequest() : QString();
        if (!url.isEmpty())
            m_services.loadPicture(url, tab, [tab](const QPixmap& picture) { tab->SetIcon(QIcon(picture)); });
    }
}

void MainWindowPrivate::ResolveApps()
{
    for (int i = 0; i < GetCount(); ++i) {
        BrowserTab* const tab = GetTab(i);
        const bool waits = tab->IsDelayed() || tab->IsAppUnknown();
        if (!waits || tab->GetServiceCode().isEmpty())
            continue;
        const TabRecord origin = MakeAppOrigin(tab->GetServiceCode());
        if (origin.trouble == TabRecord::Trouble::UnknownApp && tab->IsAppUnknown())
            continue;
        tab->SetApp(origin, m_pages);
    }
    FetchIcons();
}

TabRecord MainWindowPrivate::MakeAppOrigin(const QString& serviceCode) const
{
    TabRecord origin;
    origin.type = TabType::WebApp;
    origin.serviceCode = serviceCode;
    const auto app = m_services.apps ? m_services.apps->GetPlugin(serviceCode) : nullptr;
    if (!app) {
        origin.trouble = TabRecord::Trouble::UnknownApp;
        return origin;
    }
    origin.appName = app->GetPluginName();
    origin.appIconUrl = app->GetIconUrl();
    const QString address = app->GetAddress();
    if (address.isEmpty()) {
        origin.type = TabType::NativeApp;
        return origin;
    }
    origin.address = TLUrlUtils::ToWebUrl(address);
    if (!origin.address.isValid()) {
        origin.trouble = TabRecord::Trouble::RefusedAppAddress;
        origin.text = address;
    }
    return origin;
}

void MainWindowPrivate::OpenApp(const QString& serviceCode)
{
    for (int i = 1; i < GetCount(); ++i) {
        if (GetTab(i)->GetServiceCode() == serviceCode) {
            Select(i);
            return;
        }
    }
    AddTab(MakeAppOrigin(serviceCode), -1, true);
}

void MainWindowPrivate::Select(int index)
{
    Show(index, !m_strip->isAncestorOf(m_window->focusWidget()));
}

void MainWindowPrivate::Show(int index, bool focusContent)
{
    BrowserTab* const tab = GetTab(index);
    if (!tab)
        return;
    const bool changed = index != m_current;
    if (changed)
        m_openers.clear(); // whoever goes on elsewhere is not brought back
    if (changed && m_fullScreen)
        GetCurrentTab()->LeaveFullScreen();
    m_current = index;
    m_strip->SetCurrent(index);
    m_hover->hide();
    if (tab->IsDelayed())
        tab->Wake(m_pages);
    if (QWidget* widget = tab->GetWidget()) {
        if (m_pages->indexOf(widget) < 0)
            m_pages->addWidget(widget);
        m_pages->setCurrentWidget(widget);
        if (tab->IsStartPage())
            m_address->StartTyping();
        else if (changed && focusContent)
            tab->FocusContent();
    } else {
        m_pages->setCurrentWidget(m_waiting);
    }
    m_notices->Hide(AddressNotice);
    UpdateToolbar();
    UpdateActions();
    if (changed)
        Q_EMIT m_window->SigTabSelected(index);
}

void MainWindowPrivate::RequestClose(int index)
{
    BrowserTab* const tab = GetTab(index);
    if (tab && index > 0 && !m_ended)
        tab->RequestClose();
}

void MainWindowPrivate::Close(int index)
{
    BrowserTab* const tab = GetTab(index);
    if (!tab || index == 0 || m_ended)
        return;
    if (index == m_current && m_fullScreen)
        SetFullScreen(false);

    const TabRecord origin = tab->GetOrigin();
    if (origin.address.isValid() || !origin.serviceCode.isEmpty()) {
        m_closed.append({origin, index});
        if (m_closed.size() > MostClosed)
            m_closed.removeFirst();
    }

    const bool wasCurrent = index == m_current;
    // Asked now: the focus goes on by itself when what has it goes.
    const bool focusContent = !m_strip->isAncestorOf(m_window->focusWidget());
    const BrowserTab* const opener = m_openers.take(tab);
    for (auto it = m_openers.begin(); it != m_openers.end();) {
        if (it.value() == tab)
            it = m_openers.erase(it);
        else
            ++it;
    }
    std::unique_ptr<BrowserTab> closed = std::move(m_tabs[static_cast<std::size_t>(index)]);
    m_tabs.erase(m_tabs.begin() + index);
    if (index < m_current || m_current >= GetCount())
        --m_current;
    m_strip->Remove(index);
    if (QWidget* widget = closed->GetWidget()) {
        widget->hide();
        m_pages->removeWidget(widget);
    }
    // The call may come from one of the tab's own signals.
    closed->disconnect(this);
    closed->setParent(m_window);
    closed.release()->deleteLater();

    if (wasCurrent) {
        const int next = opener && IndexOf(opener) >= 0 ? IndexOf(opener) : m_current;
        m_current = -1; // so that it counts as a change
        Show(next, focusContent);
        if (!focusContent) {
            if (TabButton* const button = m_strip->GetButton(m_current))
                button->setFocus(Qt::OtherFocusReason);
        }
    }
    UpdateActions();
    Q_EMIT m_window->SigTabClosed(index);
    CheckIdle();
}

void MainWindowPrivate::Move(int from, int to)
{
    if (from < 1 || to < 1 || from >= GetCount() || to >= GetCount() || from == to)
        return;
    const auto first = m_tabs.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
    if (m_current == from)
        m_current = to;
    else if (from < m_current && m_current <= to)
        --m_current;
    else if (to <= m_current && m_current < from)
        ++m_current;
    m_strip->Move(from, to);
    Q_EMIT m_window->SigTabMoved(from, to);
}

void MainWindowPrivate::CloseAll()
{
    m_ended = true;
    if (m_fullScreen)
        SetFullScreen(false);
    m_closed.clear();
    m_openers.clear();
    while (GetCount() > 1) {
        m_strip->Remove(GetCount() - 1);
        m_tabs.back()->disconnect(this);
        m_tabs.pop_back();
    }
    qDeleteAll(m_window->findChildren<BrowserTab*>(QString(), Qt::FindDirectChildrenOnly));
    m_current = 0;
    m_strip->SetCurrent(0);
    m_pages->setCurrentWidget(m_tabs.front()->GetWidget());
    m_hover->hide();
    UpdateToolbar();
    UpdateActions();
}

void MainWindowPrivate::OpenStartTab()
{
    if (m_ended)
        return;
    AddTab(TabRecord(), -1, true);
}

void MainWindowPrivate::ReopenClosed()
{
    if (m_closed.isEmpty() || m_ended)
        return;
    const ClosedTab closed = m_closed.takeLast();
    // A tab that never was selected comes back as it was; where it came back is shown.
    const QPointer<BrowserTab> tab = AddTab(closed.origin, closed.index, !closed.origin.delayed);
    if (closed.origin.delayed && tab)
        m_strip->Reveal(IndexOf(tab));
}

void MainWindowPrivate::UpdateStrip(int index)
{
    const BrowserTab* tab = GetTab(index);
    TabStripItem item;
    item.title = tab->GetTitle();
    item.icon = tab->GetIcon();
    item.closable = tab->IsClosable();
    item.loading = tab->IsLoading();
    m_strip->SetItem(index, item);
}

void MainWindowPrivate::UpdateToolbar()
{
    const BrowserTab* tab = GetCurrentTab();
    const bool loading = tab->IsLoading();
    m_address->SetAddress(tab->GetAddress(), tab->GetSecurity());
    m_back->setEnabled(tab->CanGoBack());
    m_forward->setEnabled(tab->CanGoForward());
    m_reload->setEnabled(tab->HasPage());
    m_find->setEnabled(tab->HasPage());
    m_backButton->setEnabled(m_back->isEnabled());
    m_forwardButton->setEnabled(m_forward->isEnabled());
    m_reloadButton->setEnabled(m_reload->isEnabled());
    m_reloadButton->setIcon(SymbolicIcon::Make(loading ? QStringLiteral("close") : QStringLiteral("reload")));
    Name(m_reloadButton, loading ? tr("Stop") : tr("Reload"),
         loading ? tr("Stop loading (Esc)") : tr("Reload (F5)"));
    for (QAction* action : {m_zoomIn, m_zoomOut, m_zoomReset})
        action->setEnabled(tab->HasPage());
    // The line keeps its room, so that pages do not jump; it only shows while there is something to show.
    m_progress->setValue(loading ? qMax(5, tab->GetProgress()) : 0);
    m_escape->setEnabled(loading || m_fullScreen || tab->IsFindOpen());
    const QString title = tab->GetTitle();
    m_window->setWindowTitle(
        m_current == 0 ? QGuiApplication::applicationDisplayName()
                       : QStringLiteral("%1 – %2").arg(title, QGuiApplication::applicationDisplayName()));
}

void MainWindowPrivate::UpdateActions()
{
    m_closeTab->setEnabled(m_current > 0 && GetCurrentTab()->IsClosable());
    m_reopenTab->setEnabled(!m_closed.isEmpty());
    m_newTab->setEnabled(!m_ended);
}

void MainWindowPrivate::EnterAddress(const QString& text)
{
    if (text.trimmed().isEmpty())
        return;
    BrowserTab* const tab = GetCurrentTab();
    const QUrl url = AddressInput::ToUrl(text);
    if (!url.isValid()) {
        m_notices->Show(
            AddressNotice, NoticeKind::Warning,
            tr("“%1” was not opened. This client opens only web addresses, such as shop.example or "
               "https://shop.example, without user name and password.")
                .arg(text.simplified().left(200)));
        m_address->StartTyping();
        return;
    }
    m_notices->Hide(AddressNotice);
    if (tab->TakesAddresses()) {
        tab->Load(url);
        tab->FocusContent();
        return;
    }
    // Home and apps keep what they show.
    m_address->SetAddress(tab->GetAddress(), tab->GetSecurity());
    TabRecord origin;
    origin.address = url;
    AddTab(origin, -1, true);
}

void MainWindowPrivate::Zoom(int step)
{
    BrowserTab* const tab = GetCurrentTab();
    const double now = tab->GetZoom();
    double next = 1.0;
    if (step > 0) {
        const auto it = std::upper_bound(std::begin(ZoomSteps), std::end(ZoomSteps), now + 0.01);
        next = it == std::end(ZoomSteps) ? now : *it;
    } else if (step < 0) {
        const auto it = std::lower_bound(std::begin(ZoomSteps), std::end(ZoomSteps), now - 0.01);
        next = it == std::begin(ZoomSteps) ? now : *(it - 1);
    }
    tab->SetZoom(next);
}

void MainWindowPrivate::Escape()
{
    BrowserTab* const tab = GetCurrentTab();
    if (m_fullScreen)
        tab->LeaveFullScreen();
    else if (tab->IsFindOpen())
        tab->CloseFind();
    else
        tab->Stop();
}

void MainWindowPrivate::SelectNext(int step)
{
    Select((m_current + step + GetCount()) % GetCount());
}

void MainWindowPrivate::ShowTabList(QWidget* anchor)
{
    QStringList titles;
    titles.reserve(GetCount());
    for (const auto& tab : m_tabs)
        titles << tab->GetTitle();
    auto* popup = new TabListPopup(titles, m_current, m_window);
    connect(popup, &TabListPopup::SigChosen, this, &MainWindowPrivate::Select);
    popup->PopUp(anchor);
}

void MainWindowPrivate::ShowTabMenu(int index, const QPoint& position)
{
    auto* menu = new QMenu(m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    BrowserTab* const tab = GetTab(index);
    const QPointer<BrowserTab> alive(tab);
    const auto add = [this, menu](const QString& text, bool enabled, const std::function<void()>& act) {
        QAction* action = menu->addAction(text);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, act);
    };
    add(tr("Reload"), tab->HasPage(), [alive] {
        if (alive)
            alive->Reload();
    });
    menu->addSeparator();
    add(tr("Close tab"), index > 0 && tab->IsClosable(), [this, alive] { RequestClose(IndexOf(alive)); });
    add(tr("Close other tabs"), GetCount() > 2 || (index == 0 && GetCount() > 1), [this, alive] {
        if (IndexOf(alive) < 0)
            return; // its page closed it while the menu was open
        // First, so that not each neighbour in turn is selected, and loaded, before it goes too.
        Select(IndexOf(alive));
        for (int i = GetCount() - 1; i > 0; --i) {
            if (GetTab(i) != alive && GetTab(i)->IsClosable())
                RequestClose(i);
        }
    });
    menu->addSeparator();
    menu->addAction(m_reopenTab);
    menu->popup(position);
}

QString MainWindowPrivate::AskDownloadPath(const QString& proposal)
{
    return QFileDialog::getSaveFileName(m_window, tr("Save file"), proposal);
}

void MainWindowPrivate::PlaceHoverLabel()
{
    m_hover->adjustSize();
    m_hover->move(0, m_hover->parentWidget()->height() - m_hover->height());
    m_hover->raise();
}

void MainWindowPrivate::SetFullScreen(bool on)
{
    if (on == m_fullScreen)
        return;
    m_fullScreen = on;
    m_strip->setVisible(!on);
    m_toolbar->setVisible(!on);
    m_progress->setVisible(!on);
    if (on) {
        m_beforeFullScreen = m_window->windowState();
        m_window->setWindowState(m_beforeFullScreen | Qt::WindowFullScreen);
    } else {
        m_window->setWindowState(m_beforeFullScreen);
    }
    UpdateToolbar();
}

void MainWindowPrivate::BeginWaiting()
{
    if (m_waitingTabs.empty())
        return;
    m_frontTurn.start(MainWindow::frontGoesFirst);
    // By then whoever reopened the tabs has brought the right one to the front.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_frontTurn.isActive() && !GetCurrentTab()->HasPage()) {
                m_frontTurn.stop();
                LoadWaiting();
            }
        },
        Qt::QueuedConnection);
}

void MainWindowPrivate::LoadWaiting()
{
    if (m_waitingTabs.empty())
        return;
    BrowserTab* const tab = m_waitingTabs.front();
    m_waitingTabs.pop_front();
    if (IndexOf(tab) >= 0 && tab->IsDelayed()) { // a closed one may still be there
        tab->Wake(m_pages);
        if (QWidget* widget = tab->GetWidget())
            m_pages->addWidget(widget);
    }
    // The window answers between one page and the next.
    if (m_waitingTabs.empty())
        CheckIdle();
    else
        QMetaObject::invokeMethod(this, &MainWindowPrivate::LoadWaiting, Qt::QueuedConnection);
}

void MainWindowPrivate::CheckIdle()
{
    const bool loading = m_window->IsLoading();
    if (m_wasLoading && !loading) {
        m_wasLoading = false;
        Q_EMIT m_window->SigIdle();
    }
}

void MainWindowPrivate::RestoreGeometry()
{
    const QByteArray geometry = m_services.loadGeometry ? m_services.loadGeometry() : QByteArray();
    if (!geometry.isEmpty() && m_window->restoreGeometry(geometry))
        return;
    m_window->resize(ScaledToScreen(m_window, Roomy));
}

void MainWindowPrivate::StoreGeometry()
{
    m_geometryTimer.stop();
    if (m_services.saveGeometry && !m_fullScreen)
        m_services.saveGeometry(m_window->saveGeometry());
}

void MainWindowPrivate::Retranslate()
{
    Name(m_backButton, tr("Back"), tr("Back (Alt+Left)"));
    Name(m_forwardButton, tr("Forward"), tr("Forward (Alt+Right)"));
    Name(m_menuButton, tr("Menu"), tr("Menu (F10)"));
    m_progress->setAccessibleName(tr("Loading"));
    m_pages->setAccessibleName(tr("Page"));
    m_newTab->setText(tr("New &tab"));
    m_closeTab->setText(tr("Close tab"));
    m_reopenTab->setText(tr("Reopen &closed tab"));
    m_find->setText(tr("&Find in page…"));
    m_zoomMenu->setTitle(tr("&Zoom"));
    m_zoomIn->setText(tr("Zoom in"));
    m_zoomOut->setText(tr("Zoom out"));
    m_zoomReset->setText(tr("Actual size"));
    m_themeMenu->setTitle(tr("&Appearance"));
    m_languageMenu->setTitle(tr("&Language"));
    m_logOut->setText(tr("Log &out"));
    m_quit->setText(tr("&Quit"));
    const QStringList themes = {tr("Like the system"), tr("Light"), tr("Dark")};
    const QList<QAction*> actions = m_themes->actions();
    for (int i = 0; i < actions.size(); ++i)
        actions.at(i)->setText(themes.at(i));
    for (const auto& tab : m_tabs)
        tab->Retranslate();
    UpdateToolbar();
}
