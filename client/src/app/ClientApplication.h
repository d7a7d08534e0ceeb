#pragma once

#include "ClientEnd.h"
#include "ClientLife.h"
#include "ClientOptions.h"
#include "ProfileLock.h"

#include "gateway/GatewaySettings.h"
#include "login/LoginFlow.h"
#include "login/Session.h"
#include "login/SessionHandover.h"
#include "modules/LifeCycleDriver.h"
#include "modules/ModuleLoader.h"
#include "notices/NoticeBoard.h"
#include "trace/TraceRecorder.h"
#include "trace/TraceWriter.h"

#include <QtCore/QObject>

#include <memory>
#include <optional>

class ClientAppearance;
class ClientFrame;
class ClientServices;
class ClientSession;
class GatewayWatch;
class PendingChanges;
class QuestionWatch;
class SystemEndWatch;
class TroubleNotices;
class UserInformation;
class VXRouterProtocol;
struct HttpCallReport;

/// The client from start to end: builds its parts in the order of docs/lifecycle.md and takes them down
/// again. A process serves one user. GUI thread.
class ClientApplication final : public QObject
{
    Q_OBJECT

public:
    /// Exit codes other than 0.
    static constexpr int UnusableOptions = 2;
    static constexpr int LoginFailed = 3; ///< only with --quit-after, where nobody can try again

    ClientApplication(const ClientOptions& options, const GatewaySettings& gateway);
    ~ClientApplication() override;

    /// Locks the profile and opens the trace. On failure, returns false with a sentence in `problem`.
    bool Prepare(QString* problem);
    /// Runs the client; returns the exit code after everything is taken down.
    int Run();
    /// Call after `Run`. Starts the process that takes over, if one is wanted (`ClientEnd::WantsSuccessor`).
    /// On failure, returns false with a sentence in `problem`.
    bool StartSuccessor(QString* problem) const;

private:
    void WatchSystem();
    void BuildNotices();
    void BuildServices();
    void BuildSession();
    void LoadModules();

    void StartLogin();
    void HandleLogin(const Session& session, LoginFlow::Origin origin);
    void HandleFailedLogin(const QString& pin);
    void HandleReport(const HttpCallReport& report);
    void HandleUserInformation();
    void HandleRefusal();
    void MakeFrame();
    void ShowFrame();

    bool HandleRestartRoute(const VXRouterProtocol& route);
    void AskForRestart(bool openTabs, const QString& ignoreUrl);
    void AskForEnd(EndKind kind);
    void HandleSystemEnd();
    void KeepTabsOnDisk();
    void End(EndKind kind);
    void TakeDown();
    void Finish();

    const ClientOptions m_options;
    const GatewaySettings m_gatewaySettings;
    ProfileLock m_profileLock;
    ClientLife m_life;
    ClientEnd m_end;
    TraceWriter m_traceWriter;
    TraceRecorder m_trace;
    NoticeBoard m_notices;
    std::unique_ptr<SystemEndWatch> m_systemEnd;
    std::unique_ptr<QuestionWatch> m_questions;
    std::unique_ptr<ClientAppearance> m_appearance;
    std::unique_ptr<ClientServices> m_services;
    std::unique_ptr<UserInformation> m_userInformation;
    std::unique_ptr<GatewayWatch> m_gatewayWatch;
    std::unique_ptr<TroubleNotices> m_troubleNotices;
    std::unique_ptr<PendingChanges> m_pendingChanges;
    std::unique_ptr<ClientSession> m_session;
    ModuleLoader m_loader;
    LifeCycleDriver m_lifeCycle;
    std::unique_ptr<ClientFrame> m_frame;

    QString m_startProblem; // translated early: the translation is gone when the text is needed
    int m_exitCode = 0;
    /// What the previous process handed over; later, what this one hands to the next.
    std::optional<SessionHandover> m_handover;
};
