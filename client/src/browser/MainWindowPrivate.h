#pragma once

#include "FullScreen.h"
#include "OpenTabs.h"
#include "TabCommands.h"
#include "WindowActions.h"
#include "WindowGeometry.h"
#include "browser/MainWindow.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QObject>
#include <QtCore/QVector>

#include <functional>

class BrowserTab;
class DownloadNotices;
class HoverLabel;
class NoticeBar;
class PageStack;
class QProgressBar;
class TabStrip;
class Toolbar;
class WindowMenu;

/// The parts of the main window and what goes on between them: the tabs on one side, what shows and commands
/// them on the other. Lives and dies with the window.
class MainWindowPrivate final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    MainWindowPrivate(MainWindow* window, const MainWindowServices& services);
    ~MainWindowPrivate() override;

    const OpenTabs& GetTabs() const noexcept;
    const TabList& GetList() const noexcept;
    NoticeBar* GetNoticeBar() const noexcept;
    WindowMenu* GetMenu() const noexcept;

    void OpenUrl(const TabOpenInfo& info, int index);
    void OpenPlugin(const PluginOpenInfo& info, int index);
    void OpenStartTab();
    void SetOpenDelayed(bool on);
    void BeginReopening(const MainWindow::TabClaim& claim);
    void EndReopening();
    void Select(int index);
    void Move(int from, int to);
    void Close(int index);
    void CloseAll();

    void SetCloseGuard(const std::function<bool()>& guard);
    /// Whether the window may close now; the place where it stands is stored then.
    bool AgreeToClose();
    void HandleMoved();
    void HandleResized();
    void Retranslate();
    void AdjustForDpi() override;

private:
    void MakeWidgets();
    void ConnectStrip();
    void ConnectToolbar();
    void ConnectList();
    void ConnectTabs();
    void ConnectPages();
    void ConnectActions();
    void ConnectMenu();

    void HandleOpened(int index);
    void HandleLooksChanged(int index);
    void HandleFullScreenRequested(int index, bool on);
    void EnterAddress(const QString& text);
    /// The content of the current tab, and all that stands around it. `changed`: another tab was shown
    /// before; its keyboard goes to the content, unless it is in the strip.
    void ShowCurrent(bool changed, bool focusContent);
    bool IsStripFocused() const;
    void Escape();
    void SetFullScreen(bool on);
    void ShowNotification(const QUrl& origin, const QString& title, const QString& text);
    QString AskDownloadPath(const QString& proposal);
    void FetchIcons();
    void UpdateToolbar();
    void UpdateActions();

    MainWindow* const m_window;
    const MainWindowServices m_services;
    std::function<bool()> m_closeGuard;

    TabStrip* m_strip;
    Toolbar* m_toolbar;
    QProgressBar* m_progress;
    NoticeBar* m_notices;
    PageStack* m_pages;
    HoverLabel* m_hover = nullptr;
    DownloadNotices* m_downloads;

    OpenTabs m_tabs;
    WindowActions m_actions;
    TabCommands m_commands;
    WindowMenu* m_menu;
    FullScreen m_fullScreen;
    WindowGeometry m_geometry;
};
