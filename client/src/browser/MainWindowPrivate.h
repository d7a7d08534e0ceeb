#pragma once

#include "browser/MainWindow.h"
#include "browser/TabRecord.h"
#include "pages/ITabPage.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

class AddressBar;
class BrowserTab;
class DownloadNotices;
class HomePage;
class NoticeBar;
class QAction;
class QActionGroup;
class QHBoxLayout;
class QLabel;
class QMenu;
class QProgressBar;
class QStackedWidget;
class QToolButton;
class TabStrip;

/// What the main window is made of. Lives and dies with it.
class MainWindowPrivate final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    MainWindowPrivate(MainWindow* window, const MainWindowServices& services);
    ~MainWindowPrivate() override;

    int GetCount() const noexcept;
    BrowserTab* GetTab(int index) const;
    int IndexOf(const BrowserTab* tab) const;
    BrowserTab* GetCurrentTab() const;

    /// Opens for another part of the client: what that part left out is looked up, and the tab is delayed
    /// where the window is told to.
    void OpenAsked(TabRecord origin, int index, bool activate);
    /// Adds the tab at a position counted as by `ITabOpener`; the tab begins here. Null when whoever heard of
    /// it has closed it.
    QPointer<BrowserTab> AddTab(const TabRecord& origin, int index, bool activate);
    void Select(int index);
    /// `focusContent`: the keyboard goes to the page.
    void Show(int index, bool focusContent);
    /// The user wants it closed; a page with something to lose asks first.
    void RequestClose(int index);
    void Close(int index);
    void Move(int from, int to);
    void CloseAll();
    void OpenStartTab();
    void ReopenClosed();
    TabRecord MakeAppOrigin(const QString& serviceCode) const;
    void OpenApp(const QString& serviceCode);

    void UpdateToolbar();
    void UpdateActions();
    void PlaceHoverLabel();
    void SetFullScreen(bool on);
    void Retranslate();
    void AdjustForDpi() override;
    void CheckIdle();
    void BeginWaiting();
    void LoadWaiting();
    void StoreGeometry();

    MainWindow* const m_window;
    const MainWindowServices m_services;
    std::function<bool()> m_closeGuard;
    std::vector<std::unique_ptr<BrowserTab>> m_tabs;
    int m_current = 0;
    bool m_openDelayed = false;
    MainWindow::TabClaim m_claim;                   // while a set is being reopened
    int m_toLoad = 0;                               // of that set, how many may still load
    std::deque<QPointer<BrowserTab>> m_waitingTabs; // those, until their turn comes
    QTimer m_frontTurn;                             // runs while they let the page in front go first
    bool m_wasLoading = false;
    bool m_ended = false;

    TabStrip* m_strip = nullptr;
    QWidget* m_toolbar = nullptr;
    QToolButton* m_backButton = nullptr;
    QToolButton* m_forwardButton = nullptr;
    QToolButton* m_reloadButton = nullptr;
    QToolButton* m_menuButton = nullptr;
    QHBoxLayout* m_addressRoom = nullptr; // what is kept free beside the address
    AddressBar* m_address = nullptr;
    QProgressBar* m_progress = nullptr;
    NoticeBar* m_notices = nullptr;
    QStackedWidget* m_pages = nullptr;
    QWidget* m_waiting = nullptr; // shown for a tab without content
    QLabel* m_hover = nullptr;
    DownloadNotices* m_downloads = nullptr;

    QMenu* m_menu = nullptr;
    QMenu* m_zoomMenu = nullptr;
    QMenu* m_themeMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QActionGroup* m_themes = nullptr;
    QActionGroup* m_languages = nullptr;
    QAction* m_newTab = nullptr;
    QAction* m_closeTab = nullptr;
    QAction* m_reopenTab = nullptr;
    QAction* m_find = nullptr;
    QAction* m_zoomIn = nullptr;
    QAction* m_zoomOut = nullptr;
    QAction* m_zoomReset = nullptr;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_escape = nullptr;
    QAction* m_logOut = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_tabGap = nullptr;  // where they add what opens tabs
    QAction* m_menuGap = nullptr; // where other parts of the client add their entries

    QTimer m_geometryTimer;

private:
    struct ClosedTab
    {
        TabRecord origin;
        int index = -1;
    };

    void MakeWidgets();
    void MakeActions();
    QAction* AddAction(const QList<QKeySequence>& keys, const std::function<void()>& act);
    void MakeMenu();
    void ConnectTab(BrowserTab* tab);
    int Insert(std::unique_ptr<BrowserTab> tab, int index);
    void Announce(int index, bool activate);
    void TakeNewTab(BrowserTab* opener, const std::shared_ptr<std::unique_ptr<ITabPage>>& offer,
                    ITabPage::NewTabKind kind);
    void UpdateStrip(int index);
    void FetchIcons();
    void ResolveApps();
    void EnterAddress(const QString& text);
    void Zoom(int step);
    void Escape();
    void SelectNext(int step);
    void ShowTabList(QWidget* anchor);
    void ShowTabMenu(int index, const QPoint& position);
    QString AskDownloadPath(const QString& proposal);
    void RestoreGeometry();

    QVector<ClosedTab> m_closed;
    /// By which tab those were opened that a page opened since the user last went to another tab.
    QHash<const BrowserTab*, const BrowserTab*> m_openers;
    Qt::WindowStates m_beforeFullScreen = Qt::WindowNoState;
    bool m_fullScreen = false;
};
