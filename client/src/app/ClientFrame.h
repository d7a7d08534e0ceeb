#pragma once

#include "PageEngines.h"

#include "system/EndKind.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <vector>

class ClientAppearance;
class ClientServices;
class ClientSettings;
class ClientWindow;
class MainWindow;
class NoticeBoard;
class QuestionWatch;
class SavedSession;
class ScreenshotTaker;
class TabKeeper;
struct LoadedModule;

/// The main window of a session and everything that shares its life: tabs, settings dialog, screenshot.
/// GUI thread.
class ClientFrame final : public QObject
{
    Q_OBJECT

public:
    /// What the frame works with. The objects are not owned and must outlive it.
    struct Parts
    {
        ClientAppearance* appearance = nullptr;
        ClientServices* services = nullptr;
        NoticeBoard* notices = nullptr;
        QuestionWatch* questions = nullptr;
        SavedSession* savedSession = nullptr;
        std::function<bool()> isKeepersTurn; ///< `TabReopening::IsKeepersTurn`
    };

    /// Builds the window without showing it. `screenshot` is the file of the screenshot; empty for none.
    ClientFrame(const Parts& parts, PageEngine engine, const QString& profile, const QString& pin,
                const QString& screenshot, const std::vector<LoadedModule>& modules,
                QObject* parent = nullptr);
    ~ClientFrame() override;

    MainWindow* GetWindow() const;

    /// Shows the window and brings it to the front.
    void Show();
    /// Calls `mainFrameShow`, in which tabs come back, and from then on keeps a record of the open tabs.
    void ShowTabs(bool restarted, const std::function<void()>& mainFrameShow);

    /// Takes the screenshot now, if one is wanted.
    void TakePicture();
    /// Call when the gateway answers again: see `ClientSettings::LoadAgain`.
    void LoadSettingsAgain();
    bool IsSettingsOpen() const;

    /// Call when the client is about to end: the settings close as soon as every change is answered.
    void PrepareEnd();
    /// See `TabKeeper::KeepOnDisk`.
    void KeepTabsOnDisk();
    /// Call before and after the modules' `MainFrameQuit`. `ignoreUrl`: see `TabKeeper::BeforeEnd`.
    void BeforeMainFrameQuit(EndKind kind, const QString& ignoreUrl);
    void AfterMainFrameQuit(EndKind kind);
    /// Closes all tabs; call before the window is destroyed.
    void CloseAllTabs();

Q_SIGNALS:
    void SigQuitRequested();
    void SigLogOutRequested();
    void SigRestartRequested();
    void SigSettingsPageReady(const QString& page, bool cached); ///< see `SettingsDialog`
    void SigSettingsClosed();

private:
    NoticeBoard* m_notices;
    std::unique_ptr<ClientWindow> m_window;
    std::unique_ptr<ScreenshotTaker> m_screenshot;
    std::unique_ptr<ClientSettings> m_settings;
    std::unique_ptr<TabKeeper> m_tabs;
};
