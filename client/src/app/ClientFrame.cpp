#include "ClientFrame.h"

#include "ClientAppearance.h"
#include "ClientServices.h"
#include "ClientSettings.h"
#include "ClientWindow.h"

#include "browser/MainWindow.h"
#include "notices/NoticeBoard.h"
#include "recovery/TabKeeper.h"
#include "trace/ScreenshotTaker.h"

ClientFrame::ClientFrame(const Parts& parts, PageEngine engine, const QString& profile, const QString& pin,
                         const QString& screenshot, const std::vector<LoadedModule>& modules, QObject* parent)
    : QObject(parent)
    , m_notices(parts.notices)
    , m_window(
          std::make_unique<ClientWindow>(engine, profile, pin, parts.appearance, &parts.services->plugins))
{
    MainWindow* const window = m_window->GetWindow();
    m_notices->SetBar(window->GetNoticeBar());
    if (!screenshot.isEmpty()) {
        m_screenshot = std::make_unique<ScreenshotTaker>(window, screenshot);
    }
    // The window never closes by itself: the client first asks the modules, then ends everything in order.
    window->SetCloseGuard([] { return false; });
    connect(window, &MainWindow::SigQuitRequested, this, &ClientFrame::SigQuitRequested,
            Qt::QueuedConnection);
    connect(window, &MainWindow::SigLogOutRequested, this, &ClientFrame::SigLogOutRequested,
            Qt::QueuedConnection);
    connect(m_window.get(), &ClientWindow::SigRestartRequested, this, &ClientFrame::SigRestartRequested,
            Qt::QueuedConnection);
    m_settings = std::make_unique<ClientSettings>(window, m_window->GetPages(), parts.appearance,
                                                  parts.services, parts.savedSession, modules);
    connect(m_settings.get(), &ClientSettings::SigPageReady, this, &ClientFrame::SigSettingsPageReady);
    connect(m_settings.get(), &ClientSettings::SigClosed, this, &ClientFrame::SigSettingsClosed);
    m_window->AddRestartAction();
    m_tabs = std::make_unique<TabKeeper>(window, parts.questions, m_notices, &ClientServices::LoadPicture,
                                         parts.isKeepersTurn);
}

ClientFrame::~ClientFrame()
{
    m_settings.reset(); // its pages belong to modules
    m_tabs.reset();
    m_notices->SetBar(nullptr);
    m_screenshot.reset();
}

MainWindow* ClientFrame::GetWindow() const
{
    return m_window->GetWindow();
}

void ClientFrame::Show()
{
    MainWindow* const window = GetWindow();
    window->show();
    // After a restart there was no log-in dialog in front whose place the window could take.
    window->raise();
    window->activateWindow();
}

void ClientFrame::ShowTabs(bool restarted, const std::function<void()>& mainFrameShow)
{
    if (m_screenshot) {
        m_screenshot->Arm();
    }
    m_tabs->Show(restarted, mainFrameShow);
}

void ClientFrame::TakePicture()
{
    if (m_screenshot) {
        m_screenshot->TakeNow();
    }
}

void ClientFrame::LoadSettingsAgain()
{
    if (m_settings) {
        m_settings->LoadAgain();
    }
}

bool ClientFrame::IsSettingsOpen() const
{
    return m_settings && m_settings->IsOpen();
}

void ClientFrame::PrepareEnd()
{
    m_tabs->PrepareEnd();
    m_settings->Close();
}

void ClientFrame::KeepTabsOnDisk()
{
    if (m_tabs) {
        m_tabs->KeepOnDisk();
    }
}

void ClientFrame::BeforeMainFrameQuit(EndKind kind, const QString& ignoreUrl)
{
    m_settings.reset();
    m_tabs->BeforeEnd(kind, ignoreUrl);
}

void ClientFrame::AfterMainFrameQuit(EndKind kind)
{
    m_tabs->AfterMainFrameQuit(kind);
    m_tabs.reset();
}

void ClientFrame::CloseAllTabs()
{
    GetWindow()->CloseAllTabs();
}
