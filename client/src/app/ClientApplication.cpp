#include "ClientApplication.h"

#include "ClientAppearance.h"
#include "ClientFrame.h"
#include "ClientMemory.h"
#include "ClientRouterUrls.h"
#include "ClientServices.h"
#include "ClientSession.h"
#include "PendingChanges.h"
#include "TroubleNotices.h"

#include "gateway/GatewayCodes.h"
#include "gateway/GatewayWatch.h"
#include "gateway/UserInformation.h"
#include "recovery/TabKeeper.h"
#include "system/NestedLoops.h"
#include "system/QuestionWatch.h"
#include "system/SystemEndWatch.h"
#include "system/TimerDelay.h"

#include "base/VXRouterProtocol.h"
#include "http/HttpCallReport.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

namespace {

constexpr int UserInformationLimit = 3000; // [ms]
constexpr int WriteLimit = 2000;           // [ms]

QStringList ModuleFolders(const QString& chosen)
{
    if (!chosen.isEmpty()) {
        return {chosen};
    }
    // As unpacked from a zip, as built, as installed. Only the first that exists counts: next to an unpacked
    // zip there may be anything.
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* const folder : {"modules", "../modules", "../" TL_MODULE_INSTALL_DIR}) {
        const QString path = program.filePath(QLatin1String(folder));
        if (QFileInfo(path).isDir()) {
            return {path};
        }
    }
    return {};
}

bool IsAboutSession(const QByteArray& method)
{
    return method != "dsm.tl.pc.user.login" && method != "dsm.tl.pc.user.logout";
}

} // namespace

ClientApplication::ClientApplication(const ClientOptions& options, const GatewaySettings& gateway)
    : m_options(options), m_gatewaySettings(gateway), m_trace(&m_traceWriter)
{}

ClientApplication::~ClientApplication() = default;

bool ClientApplication::Prepare(QString* problem)
{
    if (!m_profileLock.Acquire(m_options.profile, problem)) {
        return false;
    }
    QString reason;
    if (!m_options.trace.isEmpty() && !m_traceWriter.Open(m_options.trace, &reason)) {
        *problem = QStringLiteral("--trace \"%1\": %2").arg(m_options.trace, reason);
        return false;
    }
    m_traceWriter.Write(
        QStringLiteral("start"),
        {{QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
         {QStringLiteral("pid"), QCoreApplication::applicationPid()}});
    return true;
}

int ClientApplication::Run()
{
    m_traceWriter.AddSecret(m_gatewaySettings.appSecret);
    WatchSystem();
    BuildNotices();
    BuildServices();
    BuildSession();
    LoadModules();
    // Everything else runs inside the event loop, so that every end can quit the loop.
    QTimer::singleShot(0, this, &ClientApplication::StartLogin);
    if (m_options.quitAfter) {
        QTimer::singleShot(*m_options.quitAfter, Qt::PreciseTimer, this, [this] {
            if (m_frame && !m_life.IsEnding()) {
                m_frame->TakePicture();
            }
            End(EndKind::Quit);
        });
    }
    const int code = QCoreApplication::exec();
    if (m_life.GetStage() != ClientStage::Ended) {
        HandleSystemEnd(); // something else ended the event loop
        TakeDown();
    }
    m_questions.reset();
    m_session.reset();
    m_appearance.reset();
    m_services.reset();
    VXSettingManager::Instance()->Close();
    m_trace.WriteExit(m_end.GetKind());
    m_profileLock.Release();
    return code;
}

bool ClientApplication::StartSuccessor(QString* problem) const
{
    if (!m_end.WantsSuccessor()) {
        return true;
    }
    const QString program = QCoreApplication::applicationFilePath();
    const QStringList arguments = QCoreApplication::arguments();
    const bool handsOver = m_end.GetKind() == EndKind::Restart && m_handover;
    if (handsOver && m_handover->StartProcess(program, ClientOptions::ForRestart(arguments))) {
        return true;
    }
    if (!QProcess::startDetached(program, ClientOptions::ForFreshStart(arguments))) {
        *problem = m_startProblem;
        return false;
    }
    return true;
}

void ClientApplication::WatchSystem()
{
    m_systemEnd = std::make_unique<SystemEndWatch>();
    connect(m_systemEnd.get(), &SystemEndWatch::SigSystemEndPlanned, this,
            &ClientApplication::KeepTabsOnDisk);
    connect(m_systemEnd.get(), &SystemEndWatch::SigSystemEnd, this, [this] {
        HandleSystemEnd();
        End(EndKind::SystemEnd);
    });
    // Some systems, Windows among them, end the process right after this.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ClientApplication::KeepTabsOnDisk);
    m_questions = std::make_unique<QuestionWatch>();
    m_trace.Watch(m_questions.get());
}

void ClientApplication::BuildNotices()
{
    m_gatewayWatch = std::make_unique<GatewayWatch>(std::make_unique<TimerDelay>(),
                                                    [this] { m_userInformation->RefreshPlugins(); });
    m_troubleNotices = std::make_unique<TroubleNotices>(&m_notices, m_gatewayWatch.get());
    auto* const settings = VXSettingManager::Instance();
    connect(settings, &VXSettingManager::SigStoreSetAside, m_troubleNotices.get(),
            &TroubleNotices::ShowStoreSetAside);
    connect(settings, &VXSettingManager::SigValueDamaged, m_troubleNotices.get(),
            &TroubleNotices::HandleDamagedValue);
    connect(settings, &VXSettingManager::SigStoreFailed, m_troubleNotices.get(),
            &TroubleNotices::ShowStoreFailed);
    m_trace.Watch(&m_notices);
    [[maybe_unused]] const bool stored =
        settings->Open(QDir(m_options.profile).filePath(QStringLiteral("settings.sqlite")));
}

void ClientApplication::BuildServices()
{
    m_appearance = std::make_unique<ClientAppearance>(ClientAppearance::DefaultTranslations());
    m_services = std::make_unique<ClientServices>(m_gatewaySettings, m_options.profile);
    m_services->gateway.SetLanguage(m_appearance->GetLanguage());
    connect(m_appearance.get(), &ClientAppearance::SigLanguageChanged, this, [this](const QString& language) {
        m_services->gateway.SetLanguage(language);
        m_notices.Retranslate();
    });
    m_services->router.AddRoute(ClientRouterUrls::ClientRestart,
                                [this](const VXRouterProtocol& route) { return HandleRestartRoute(route); });
    m_trace.Watch(&m_services->http);
    m_trace.Watch(&m_services->events);
    m_trace.Watch(&m_services->monitor);
    m_trace.WatchNotifications();

    m_pendingChanges = std::make_unique<PendingChanges>(
        [this] { return m_services->http.IsWriting() || (m_frame && m_frame->IsSettingsOpen()); });
    connect(&m_services->http, &HttpManager::SigFinished, this, &ClientApplication::HandleReport);
    connect(&m_services->http, &HttpManager::SigFinished, m_pendingChanges.get(), &PendingChanges::Check);

    m_userInformation = std::make_unique<UserInformation>(&m_services->plugins, &m_services->functions);
    connect(m_userInformation.get(), &UserInformation::SigFinished, this,
            &ClientApplication::HandleUserInformation);
    connect(m_gatewayWatch.get(), &GatewayWatch::SigFound, m_userInformation.get(),
            &UserInformation::RefreshFunctions);
}

void ClientApplication::BuildSession()
{
    m_session = std::make_unique<ClientSession>();
    LoginFlow* const flow = m_session->GetFlow();
    connect(flow, &LoginFlow::SigDialogComes, this, [this] { m_lifeCycle.BeforeLoginConstruct(); });
    connect(flow, &LoginFlow::SigLoggedIn, this, &ClientApplication::HandleLogin);
    connect(flow, &LoginFlow::SigFailed, this, &ClientApplication::HandleFailedLogin);
    connect(flow, &LoginFlow::SigGivenUp, this, [this] { End(EndKind::Quit); });
    connect(flow, &LoginFlow::SigSaveFailed, m_troubleNotices.get(), &TroubleNotices::ShowSaveFailed);
}

void ClientApplication::LoadModules()
{
    m_trace.Watch(&m_loader);
    m_loader.Load(ModuleFolders(m_options.modules));
    const std::vector<LoadedModule> modules = m_loader.GetModules();
    m_services->router.SetModules(modules);
    m_lifeCycle.SetModules(modules);
    m_lifeCycle.StartApp();
}

void ClientApplication::StartLogin()
{
    if (m_options.takeSession) {
        m_handover = SessionHandover::Take();
        if (m_handover) {
            HandleLogin(m_handover->session, LoginFlow::Origin::Restart);
            return;
        }
    }
    if (m_life.Go(ClientStage::LoggingIn)) {
        m_session->Start(m_options);
    }
}

void ClientApplication::HandleLogin(const Session& session, LoginFlow::Origin origin)
{
    if (!m_life.Go(ClientStage::Entering)) {
        return;
    }
    m_traceWriter.AddSecret(session.accessToken);
    m_trace.WriteLogin(session.pin, true, origin);
    m_session->Begin(session);
    m_exitCode = 0;
    m_services->SetSession(session);
    if (m_handover) {
        m_services->general.GetAsyncInfoManager()->SetRestart(m_handover->openTabs);
    }
    m_userInformation->Read(UserInformationLimit);
    if (origin != LoginFlow::Origin::Saved && origin != LoginFlow::Origin::Restart) {
        // The gateway has just accepted this log-in. It may still refuse an older session, and modules must
        // not hear of that one.
        m_lifeCycle.LoginSuccess();
        MakeFrame();
    }
}

void ClientApplication::HandleFailedLogin(const QString& pin)
{
    m_trace.WriteLogin(pin, false, LoginFlow::Origin::Dialog);
    if (m_options.quitAfter) {
        m_exitCode = LoginFailed;
    }
}

void ClientApplication::HandleReport(const HttpCallReport& report)
{
    if (!IsAboutSession(report.method) || m_session->Get().IsEmpty() || m_life.IsEnding()) {
        return;
    }
    m_gatewayWatch->HandleReport(report);
    m_troubleNotices->HandleReport(report);
    if (GatewayCodes::IsSessionRefused(report.code) && m_session->GetRefusal().isEmpty()) {
        m_session->SetRefusal(report.code);
        // Let this call complete first.
        QMetaObject::invokeMethod(this, &ClientApplication::HandleRefusal, Qt::QueuedConnection);
    }
}

void ClientApplication::HandleUserInformation()
{
    if (!m_session->GetRefusal().isEmpty() || !m_life.CanGo(ClientStage::Working)) {
        return;
    }
    m_lifeCycle.LoginSuccess();
    m_lifeCycle.GetUserInfoSuccess();
    MakeFrame();
    m_life.Go(ClientStage::Working);
    m_lifeCycle.MainFrameCreate();
    ShowFrame();
}

void ClientApplication::HandleRefusal()
{
    if (m_life.IsEnding()) {
        return;
    }
    if (m_frame) {
        // Modules may hold data of the user; only a fresh process certainly has none.
        ClientMemory::SetSessionEnd(m_session->GetRefusal());
        End(EndKind::Refused);
        return;
    }
    m_userInformation->Stop();
    m_services->ClearSession();
    m_trace.WriteLogin(m_session->Get().pin, false,
                       m_handover ? LoginFlow::Origin::Restart : LoginFlow::Origin::Saved);
    m_handover.reset();
    m_life.Go(ClientStage::LoggingIn);
    m_session->StartAgain();
}

void ClientApplication::MakeFrame()
{
    if (m_frame) {
        return;
    }
    ClientFrame::Parts parts;
    parts.appearance = m_appearance.get();
    parts.services = m_services.get();
    parts.notices = &m_notices;
    parts.questions = m_questions.get();
    parts.savedSession = m_session->GetSaved();
    parts.isKeepersTurn = [this] {
        return m_services->router.IsListed(TabKeeper::GetUpdateUrl(), m_lifeCycle.GetRunningModule());
    };
    m_frame =
        std::make_unique<ClientFrame>(parts, m_options.pageEngine, m_options.profile, m_session->Get().pin,
                                      m_options.screenshot, m_loader.GetModules());
    m_trace.Watch(m_frame->GetWindow());
    connect(m_frame.get(), &ClientFrame::SigQuitRequested, this, [this] { AskForEnd(EndKind::Quit); });
    connect(m_frame.get(), &ClientFrame::SigLogOutRequested, this, [this] { AskForEnd(EndKind::LogOut); });
    connect(m_frame.get(), &ClientFrame::SigRestartRequested, this,
            [this] { AskForRestart(true, QString()); });
    connect(m_frame.get(), &ClientFrame::SigSettingsPageReady, &m_trace, &TraceRecorder::WriteSettingsPage);
    connect(m_frame.get(), &ClientFrame::SigSettingsClosed, m_pendingChanges.get(), &PendingChanges::Check);
    connect(m_gatewayWatch.get(), &GatewayWatch::SigFound, m_frame.get(), &ClientFrame::LoadSettingsAgain);
}

void ClientApplication::ShowFrame()
{
    m_frame->Show();
    m_session->CloseDialog();
    QTimer::singleShot(0, m_frame.get(), [this] {
        if (m_life.IsEnding()) {
            return;
        }
        m_frame->ShowTabs(m_handover.has_value(), [this] { m_lifeCycle.MainFrameShow(); });
        m_traceWriter.Write(QStringLiteral("ready"), {});
    });
}

bool ClientApplication::HandleRestartRoute(const VXRouterProtocol& route)
{
    if (!m_frame || m_life.IsEnding()) {
        return false;
    }
    const bool openTabs = route.GetWith(QStringLiteral("tabs")) != QLatin1String("0");
    const QString ignoreUrl = route.GetWith(QStringLiteral("ignore"));
    // Let the caller finish first.
    QMetaObject::invokeMethod(
        this, [this, openTabs, ignoreUrl] { AskForRestart(openTabs, ignoreUrl); }, Qt::QueuedConnection);
    return true;
}

void ClientApplication::AskForRestart(bool openTabs, const QString& ignoreUrl)
{
    if (!m_life.IsEnding()) {
        m_end.PrepareRestart(openTabs, ignoreUrl);
        AskForEnd(EndKind::Restart);
    }
}

void ClientApplication::AskForEnd(EndKind kind)
{
    if (!m_life.IsEnding() && m_lifeCycle.MayClose()) {
        End(kind);
    }
}

void ClientApplication::HandleSystemEnd()
{
    // An end that the user chose a moment ago stands, unless it is a restart.
    m_end.HandleSystemEnd();
}

void ClientApplication::KeepTabsOnDisk()
{
    if (m_frame) {
        m_frame->KeepTabsOnDisk();
    }
}

void ClientApplication::End(EndKind kind)
{
    if (!m_life.Go(ClientStage::Ending)) {
        return;
    }
    m_end.Decide(kind);
    m_userInformation->Stop();
    if (m_frame) {
        m_frame->PrepareEnd();
    }
    // A module may have a question open; its code must return before the module can unload.
    NestedLoops::LeaveThen(this, [this] {
        const auto takeDown = [this] { NestedLoops::LeaveThen(this, [this] { TakeDown(); }); };
        if (m_frame) {
            // Pages may ask something while the client waits.
            m_pendingChanges->WaitThen(WriteLimit, takeDown);
        } else {
            takeDown();
        }
    });
}

void ClientApplication::TakeDown()
{
    if (!m_life.Go(ClientStage::Ended)) {
        return;
    }
    m_end.Close();
    m_startProblem = tr("The client could not restart. Please start it manually.");
    if (m_frame) {
        m_frame->BeforeMainFrameQuit(m_end.GetKindForTabs(), m_end.GetIgnoredUrl());
    }
    if (m_end.EndsSession()) {
        m_lifeCycle.LogOut();
    }
    if (m_end.SkipsMainFrameQuit()) {
        m_lifeCycle.PassOverMainFrameQuit();
    } else {
        m_lifeCycle.MainFrameQuit();
    }
    if (m_frame) {
        m_frame->AfterMainFrameQuit(m_end.GetKindForTabs());
        m_frame->CloseAllTabs();
        m_lifeCycle.BeforeMainFrameDestruct();
        m_frame.reset();
    }
    m_session->CloseDialog();
    m_lifeCycle.ExitApp();
    m_services->router.SetModules({});
    m_services->http.DropCalls();
    m_services->images.DropRequests();
    m_loader.Unload();
    if (m_end.EndsSession()) {
        m_session->End([this] { Finish(); });
        return;
    }
    m_handover = SessionHandover{m_session->Get(), m_end.OpensTabsAgain()};
    Finish();
}

void ClientApplication::Finish()
{
    m_services->ClearSession();
    QCoreApplication::exit(m_exitCode);
}
