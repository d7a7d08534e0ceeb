#pragma once

#include "ClientOptions.h"
#include "gateway/GatewaySettings.h"
#include "login/LoginFlow.h"
#include "login/Session.h"
#include "login/SessionHandover.h"
#include "modules/LifeCycleDriver.h"
#include "modules/ModuleLoader.h"
#include "notices/NoticeBoard.h"
#include "system/EndKind.h"
#include "trace/TraceRecorder.h"
#include "trace/TraceWriter.h"

#include <QtCore/QLockFile>
#include <QtCore/QObject>

#include <memory>
#include <optional>

class QDeadlineTimer;

class ClientAppearance;
class TroubleNotices;
class ClientServices;
class ClientSettings;
class TabKeeper;
class ClientWindow;
class GatewayWatch;
class IKeyStore;
class SavedSession;
class LoginService;
class QuestionWatch;
class ScreenshotTaker;
class SystemEndWatch;
class UserInformation;
class VXRouterProtocol;
struct HttpCallReport;

/// The client from its start to its end: brings up what it is made of in the order of docs/lifecycle.md
/// and takes it down again. One user for the life of the process. GUI thread.
class ClientApplication final : public QObject
{
    Q_OBJECT

public:
    /// Exit codes beside 0.
    static constexpr int UnusableOptions = 2;
    static constexpr int LoginFailed = 3; ///< only where nobody is there to try again (--quit-after)

    ClientApplication(const ClientOptions& options, const GatewaySettings& gateway);
    ~ClientApplication() override;

    /// Makes profile and trace. False, with a sentence in `problem`, when that cannot be done.
    bool Prepare(QString* problem);
    /// Returns when everything is taken down.
    int Run();
    /// After `Run`: starts the process that takes over, when there is to be one, because the user logged out
    /// or the client restarts. False, with a sentence in `problem`, when it could not be started.
    bool StartSuccessor(QString* problem) const;

private:
    bool TakeProfileLock();
    void Build();
    void LoadModules();
    void StartLogin();
    void TakeSession(const Session& session, LoginFlow::Origin origin);
    void TakeFailedLogin(const QString& pin);
    void TakeReport(const HttpCallReport& report);
    void TakeUserInformation();
    void TakeRefusal();
    void MakeWindow();
    void ShowWindow();
    void AskForEnd(EndKind kind);
    bool TakeRestartRoute(const VXRouterProtocol& route);
    void AskForRestart(bool openTabs, const QString& ignoreUrl);
    void End(EndKind kind);
    void TakeSystemEnd();
    void KeepTabsOnDisk();
    void EndOnceWritten(const QDeadlineTimer& deadline);
    void EndNow();
    void EndSession();
    void Finish();

    const ClientOptions m_options;
    const GatewaySettings m_gatewaySettings;
    std::unique_ptr<QLockFile> m_profileLock;
    TraceWriter m_traceWriter;
    TraceRecorder m_trace;
    NoticeBoard m_notices;
    std::unique_ptr<SystemEndWatch> m_systemEnd;
    std::unique_ptr<QuestionWatch> m_questions;
    std::unique_ptr<ClientAppearance> m_appearance;
    std::unique_ptr<ClientServices> m_services;
    std::unique_ptr<UserInformation> m_userInformation;
    std::unique_ptr<GatewayWatch> m_watch;
    std::unique_ptr<TroubleNotices> m_clientNotices;
    std::unique_ptr<IKeyStore> m_keyStore;
    std::unique_ptr<SavedSession> m_kept;
    std::unique_ptr<LoginService> m_loginService;
    std::unique_ptr<LoginFlow> m_loginFlow;
    ModuleLoader m_loader;
    LifeCycleDriver m_lifeCycle;
    std::unique_ptr<ClientWindow> m_window;
    std::unique_ptr<TabKeeper> m_tabs;
    std::unique_ptr<ClientSettings> m_settings;
    std::unique_ptr<ScreenshotTaker> m_screenshot;

    Session m_session;
    QString m_refusal; // the code with which the gateway refused the session
    int m_exitCode = 0;
    bool m_frameMade = false;
    bool m_ending = false;     // an end was decided on
    bool m_ended = false;      // it has come
    bool m_systemEnds = false; // the system wants the process gone
    EndKind m_endKind = EndKind::Quit;
    QString m_startProblem;       // in the user's language, which is gone when it is needed
    bool m_restarted = false;     // this process took over from one that restarted itself
    bool m_openTabsAgain = false; // what a restart asks for
    QString m_ignoreUrl;          // the tab that it leaves out
    std::optional<SessionHandover> m_handover;
};
