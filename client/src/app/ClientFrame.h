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

/// The main window of a session and what lives and dies with it: its tabs, its settings dialog, its picture.
/// GUI thread.
class ClientFrame final : public QObject
{
    Q_OBJECT

public:
    /// What the frame is made from. The objects are not owned and outlive it.
    struct Parts
    {
        ClientAppearance* appearance = nullptr;
        ClientServices* services = nullptr;
        NoticeBoard* notices = nullptr;
        QuestionWatch* questions = nullptr;
        SavedSession* savedSession = nullptr;
        std::function<bool()> isKeepersTurn; ///< `TabReopening::IsKeepersTurn`
    };

    /// Makes the window without showing it. `screenshot` is the file of the picture; empty for none.
    ClientFrame(const Parts& parts, PageEngine engine, const QString& profile, const QString& pin,
                const QString& screenshot, const std::vector<LoadedModule>& modules,
                QObject* parent = nullptr);
    ~ClientFrame() override;

    MainWindow* GetWindow() const;

    /// Puts the window on the screen.
    void Show();
    /// Calls `mainFrameShow`, in which tabs come back, and keeps the open tabs from then on.
    void ShowTabs(bool restarted, const std::function<void()>& mainFrameShow);

    /// The picture shows what is there now.
    void TakePicture();
    /// The gateway answers again.
    void LoadSettingsAgain();
    bool IsSettingsOpen() const;

    /// The client is about to end: the settings close as soon as every change is answered.
    void PrepareEnd();
    /// `TabKeeper::KeepOnDisk`.
    void KeepTabsOnDisk();
    /// Before the modules' main frame quits, and after. `ignoreUrl`: see `TabKeeper::BeforeEnd`.
    void BeforeMainFrameQuit(EndKind kind, const QString& ignoreUrl);
    void AfterMainFrameQuit(EndKind kind);
    /// Takes the tabs away, before the window goes.
    void CloseAllTabs();

Q_SIGNALS:
    void SigQuitRequested();
    void SigLogOutRequested();
    void SigRestartRequested();
    void SigSettingsPageReady(const QString& page, bool cached); ///< as `SettingsDialog` has it
    void SigSettingsClosed();

private:
    NoticeBoard* m_notices;
    std::unique_ptr<ClientWindow> m_window;
    std::unique_ptr<ScreenshotTaker> m_screenshot;
    std::unique_ptr<ClientSettings> m_settings;
    std::unique_ptr<TabKeeper> m_tabs;
};
