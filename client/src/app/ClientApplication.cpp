#include "ClientApplication.h"

#include "ClientAppearance.h"
#include "ClientMemory.h"
#include "ClientRouterUrls.h"
#include "ClientServices.h"
#include "ClientSettings.h"
#include "ClientWindow.h"
#include "TroubleNotices.h"
#include "gateway/GatewayCodes.h"
#include "gateway/GatewayWatch.h"
#include "gateway/UserInformation.h"
#include "login/SavedSession.h"
#include "login/SystemKeyStore.h"
#include "recovery/TabKeeper.h"
#include "system/NestedLoops.h"
#include "system/QuestionWatch.h"
#include "system/SystemEndWatch.h"
#include "system/TimerDelay.h"
#include "trace/ScreenshotTaker.h"

#include "base/VXRouterProtocol.h"
#include "http/HttpCallReport.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

namespace {

constexpr int userInformationLimit = 3000; // [ms]
constexpr int endSessionLimit = 2000;      // [ms]
constexpr int writeLimit = 2000;           // [ms]
constexpr int writePause = 10;             // [ms]
constexpr int profileLockTimeout = 5000;   // [ms]

QStringList ModuleFolders(const QString& chosen)
{
    if (!chosen.isEmpty()) {
        return {chosen};
    }
    // As unpacked from a zip, as built, as installed. Only the first that is there: beside the folder of a
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

QString FirstLine(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        return QString();
    }
    QByteArray line = source.readLine(4096);
    while (line.endsWith('\n') || line.endsWith('\r')) {
        line.chop(1);
    }
    return QString::fromUtf8(line);
}

bool EndsSession(EndKind kind)
{
    return kind == EndKind::LogOut || kind == EndKind::Refused;
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
    if (!QDir().mkpath(m_options.profile)) {
        *problem = QStringLiteral("The profile folder \"%1\" cannot be made.").arg(m_options.profile);
        return false;
    }
    m_profileLock =
        std::make_unique<QLockFile>(QDir(m_options.profile).filePath(QStringLiteral("client.lock")));
    m_profileLock->setStaleLockTime(0); // held for as long as the client runs
    if (!TakeProfileLock()) {
        *problem = QStringLiteral("The profile \"%1\" cannot be used: another client has it open, or the "
                                  "folder cannot be written to.")
                       .arg(m_options.profile);
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

bool ClientApplication::TakeProfileLock()
{
    if (m_profileLock->tryLock(profileLockTimeout)) {
        return true;
    }
    qint64 processId = 0;
    QString host;
    QString program;
    // A client that was killed while it made the file left one without a name in it.
    const bool named = m_profileLock->getLockInfo(&processId, &host, &program);
    return !named && m_profileLock->removeStaleLockFile() && m_profileLock->tryLock();
}

int ClientApplication::Run()
{
    Build();
    LoadModules();
    // Everything else runs inside the event loop, so that every way to end finds it there.
    QTimer::singleShot(0, this, &ClientApplication::StartLogin);
    if (m_options.quitAfter) {
        QTimer::singleShot(*m_options.quitAfter, Qt::PreciseTimer, this, [this] {
            if (m_screenshot && !m_ending) {
                m_screenshot->TakeNow();
            }
            End(EndKind::Quit);
        });
    }
    const int code = QCoreApplication::exec();
    if (!m_ended) {
        TakeSystemEnd(); // the event loop was ended from outside
        EndNow();
    }
    m_questions.reset();
    m_loginFlow.reset();
    m_appearance.reset();
    m_services.reset();
    VXSettingManager::Instance()->Close();
    m_trace.WriteExit(m_endKind);
    m_profileLock->unlock();
    return code;
}

bool ClientApplication::StartSuccessor(QString* problem) const
{
    if (m_systemEnds) {
        return true; // it would start into the end of everything
    }
    const QString program = QCoreApplication::applicationFilePath();
    const QStringList arguments = QCoreApplication::arguments();
    if (m_handover && m_handover->StartProcess(program, ClientOptions::ForRestart(arguments))) {
        return true;
    }
    const bool wanted = EndsSession(m_endKind) || m_endKind == EndKind::Restart;
    if (wanted && !QProcess::startDetached(program, ClientOptions::ForFreshStart(arguments))) {
        *problem = m_startProblem;
        return false;
    }
    return true;
}

void ClientApplication::Build()
{
    m_traceWriter.AddSecret(m_gatewaySettings.appSecret);
    m_systemEnd = std::make_unique<SystemEndWatch>();
    connect(m_systemEnd.get(), &SystemEndWatch::SigSystemEndPlanned, this,
            &ClientApplication::KeepTabsOnDisk);
    connect(m_systemEnd.get(), &SystemEndWatch::SigSystemEnd, this, [this] {
        TakeSystemEnd();
        End(EndKind::SystemEnd);
    });
    // Where the system ends the process right after this, as Windows does, nothing that follows comes to
    // pass.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ClientApplication::KeepTabsOnDisk);

    m_questions = std::make_unique<QuestionWatch>();
    m_trace.Watch(m_questions.get());

    m_watch = std::make_unique<GatewayWatch>(std::make_unique<TimerDelay>(),
                                             [this] { m_userInformation->RefreshPlugins(); });
    m_clientNotices = std::make_unique<TroubleNotices>(&m_notices, m_watch.get());
    auto* const settings = VXSettingManager::Instance();
    connect(settings, &VXSettingManager::SigStoreSetAside, m_clientNotices.get(),
            &TroubleNotices::ShowStoreSetAside);
    connect(settings, &VXSettingManager::SigValueDamaged, m_clientNotices.get(),
            &TroubleNotices::TakeDamagedValue);
    connect(settings, &VXSettingManager::SigStoreFailed, m_clientNotices.get(),
            &TroubleNotices::ShowStoreFailed);
    m_trace.Watch(&m_notices);
    [[maybe_unused]] const bool stored =
        settings->Open(QDir(m_options.profile).filePath(QStringLiteral("settings.sqlite")));

    m_appearance = std::make_unique<ClientAppearance>(ClientAppearance::DefaultTranslations());
    m_services = std::make_unique<ClientServices>(m_gatewaySettings, m_options.profile);
    m_services->gateway.SetLanguage(m_appearance->GetLanguage());
    connect(m_appearance.get(), &ClientAppearance::SigLanguageChanged, this, [this](const QString& language) {
        m_services->gateway.SetLanguage(language);
        m_notices.Retranslate();
    });
    m_services->router.AddRoute(ClientRouterUrls::ClientRestart,
                                [this](const VXRouterProtocol& route) { return TakeRestartRoute(route); });
    m_trace.Watch(&m_services->http);
    m_trace.Watch(&m_services->events);
    m_trace.Watch(&m_services->monitor);
    m_trace.WatchNotifications();
    connect(&m_services->http, &HttpManager::SigFinished, this, &ClientApplication::TakeReport);

    m_userInformation = std::make_unique<UserInformation>(&m_services->plugins, &m_services->functions);
    connect(m_userInformation.get(), &UserInformation::SigFinished, this,
            &ClientApplication::TakeUserInformation);
    connect(m_watch.get(), &GatewayWatch::SigFound, m_userInformation.get(),
            &UserInformation::RefreshFunctions);

    m_keyStore = std::make_unique<SystemKeyStore>();
    m_kept = std::make_unique<SavedSession>(m_keyStore.get(), &QDateTime::currentDateTimeUtc);
    m_loginService = std::make_unique<LoginService>();
    m_loginFlow = std::make_unique<LoginFlow>(m_loginService.get(), m_kept.get(), m_keyStore.get());
    connect(m_loginFlow.get(), &LoginFlow::SigDialogComes, this,
            [this] { m_lifeCycle.BeforeLoginConstruct(); });
    connect(m_loginFlow.get(), &LoginFlow::SigLoggedIn, this, &ClientApplication::TakeSession);
    connect(m_loginFlow.get(), &LoginFlow::SigFailed, this, &ClientApplication::TakeFailedLogin);
    connect(m_loginFlow.get(), &LoginFlow::SigGivenUp, this, [this] { End(EndKind::Quit); });
    connect(m_loginFlow.get(), &LoginFlow::SigKeepFailed, m_clientNotices.get(),
            &TroubleNotices::ShowKeepFailed);
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
        if (const std::optional<SessionHandover> handover = SessionHandover::Take()) {
            m_openTabsAgain = handover->openTabs;
            TakeSession(handover->session, LoginFlow::Origin::Restart);
            return;
        }
    }
    if (!m_options.passwordFile.isEmpty()) {
        m_loginFlow->StartWith(m_options.pin, FirstLine(m_options.passwordFile));
        return;
    }
    const QString ended = ClientMemory::TakeSessionEnd();
    const LoginProblem problem = ended.isEmpty() ? LoginProblem() : LoginService::ToProblem(ended, QString());
    if (!m_options.pin.isEmpty() && m_options.pin != m_kept->GetPin()) {
        m_loginFlow->ShowDialog(m_options.pin, problem); // another account is wanted than the kept one
        return;
    }
    m_loginFlow->Start(m_options.pin.isEmpty() ? ClientMemory::GetLastPin() : m_options.pin, problem);
}

void ClientApplication::TakeSession(const Session& session, LoginFlow::Origin origin)
{
    if (m_ending) {
        return;
    }
    m_traceWriter.AddSecret(session.accessToken);
    m_trace.WriteLogin(session.pin, true, origin);
    m_session = session;
    m_refusal.clear();
    m_exitCode = 0;
    m_services->SetSession(session);
    m_restarted = origin == LoginFlow::Origin::Restart;
    if (m_restarted) {
        m_services->general.GetAsyncInfoManager()->SetRestart(m_openTabsAgain);
    }
    m_userInformation->Read(userInformationLimit);
    if (origin != LoginFlow::Origin::Kept && !m_restarted) {
        // The gateway has just said yes. An older session may still be refused, and then nobody was here.
        m_lifeCycle.LoginSuccess();
        MakeWindow();
    }
}

void ClientApplication::TakeFailedLogin(const QString& pin)
{
    m_trace.WriteLogin(pin, false, LoginFlow::Origin::Dialog);
    if (m_options.quitAfter) {
        m_exitCode = LoginFailed;
    }
}

void ClientApplication::TakeReport(const HttpCallReport& report)
{
    if (!IsAboutSession(report.method) || m_session.IsEmpty() || m_ending) {
        return;
    }
    m_watch->HandleReport(report);
    m_clientNotices->Take(report);
    if (GatewayCodes::IsSessionRefused(report.code) && m_refusal.isEmpty()) {
        m_refusal = report.code;
        // The completion of this call comes first.
        QMetaObject::invokeMethod(this, &ClientApplication::TakeRefusal, Qt::QueuedConnection);
    }
}

void ClientApplication::TakeUserInformation()
{
    if (m_ending || !m_refusal.isEmpty() || m_frameMade) {
        return;
    }
    m_lifeCycle.LoginSuccess();
    m_lifeCycle.GetUserInfoSuccess();
    MakeWindow();
    m_frameMade = true;
    m_lifeCycle.MainFrameCreate();
    ShowWindow();
}

void ClientApplication::TakeRefusal()
{
    if (m_ending) {
        return;
    }
    if (m_frameMade || m_window) {
        // Modules may know the user: only a fresh process is sure to be nobody's.
        ClientMemory::SetSessionEnd(m_refusal);
        End(EndKind::Refused);
        return;
    }
    const QString pin = m_session.pin;
    m_userInformation->Stop();
    m_session = Session();
    m_services->ClearSession();
    m_trace.WriteLogin(pin, false, m_restarted ? LoginFlow::Origin::Restart : LoginFlow::Origin::Kept);
    m_restarted = false;
    m_kept->Forget([] {});
    m_loginFlow->ShowDialog(pin, LoginService::ToProblem(m_refusal, QString()));
}

void ClientApplication::MakeWindow()
{
    if (m_window) {
        return;
    }
    m_window = std::make_unique<ClientWindow>(m_options.pageEngine, m_options.profile, m_session.pin,
                                              m_appearance.get(), &m_services->plugins);
    MainWindow* const window = m_window->GetWindow();
    m_trace.Watch(window);
    m_notices.SetBar(window->GetNoticeBar());
    if (!m_options.screenshot.isEmpty()) {
        m_screenshot = std::make_unique<ScreenshotTaker>(window, m_options.screenshot);
    }
    // The window never closes by itself; the modules are asked first, and then everything ends in order.
    window->SetCloseGuard([] { return false; });
    connect(
        window, &MainWindow::SigQuitRequested, this, [this] { AskForEnd(EndKind::Quit); },
        Qt::QueuedConnection);
    connect(
        window, &MainWindow::SigLogOutRequested, this, [this] { AskForEnd(EndKind::LogOut); },
        Qt::QueuedConnection);
    connect(
        m_window.get(), &ClientWindow::SigRestartRequested, this, [this] { AskForRestart(true, QString()); },
        Qt::QueuedConnection);
    m_settings = std::make_unique<ClientSettings>(window, m_window->GetPages(), m_appearance.get(),
                                                  m_services.get(), m_kept.get(), m_loader.GetModules());
    connect(m_watch.get(), &GatewayWatch::SigFound, m_settings.get(), &ClientSettings::LoadAgain);
    connect(m_settings.get(), &ClientSettings::SigPageReady, &m_trace, &TraceRecorder::WriteSettingsPage);
    m_window->AddRestartAction();
    m_tabs = std::make_unique<TabKeeper>(window, m_questions.get(), &m_notices, &ClientServices::LoadPicture);
}

void ClientApplication::ShowWindow()
{
    MainWindow* const window = m_window->GetWindow();
    window->show();
    m_loginFlow->CloseDialog();
    // After a restart there was no dialog whose place in front it could take.
    window->raise();
    window->activateWindow();
    QTimer::singleShot(0, m_window.get(), [this] {
        if (m_ending) {
            return;
        }
        if (m_screenshot) {
            m_screenshot->Arm();
        }
        m_tabs->Show(m_restarted, [this] { m_lifeCycle.MainFrameShow(); });
        m_traceWriter.Write(QStringLiteral("ready"), {});
    });
}

void ClientApplication::AskForEnd(EndKind kind)
{
    if (!m_ending && m_lifeCycle.MayClose()) {
        End(kind);
    }
}

bool ClientApplication::TakeRestartRoute(const VXRouterProtocol& route)
{
    if (!m_window || m_ending) {
        return false;
    }
    const bool openTabs = route.GetWith(QStringLiteral("tabs")) != QLatin1String("0");
    const QString ignoreUrl = route.GetWith(QStringLiteral("ignore"));
    // Whoever asks for it is done before it happens.
    QMetaObject::invokeMethod(
        this, [this, openTabs, ignoreUrl] { AskForRestart(openTabs, ignoreUrl); }, Qt::QueuedConnection);
    return true;
}

void ClientApplication::AskForRestart(bool openTabs, const QString& ignoreUrl)
{
    if (m_ending) {
        return;
    }
    m_openTabsAgain = openTabs;
    m_ignoreUrl = ignoreUrl;
    AskForEnd(EndKind::Restart);
}

void ClientApplication::End(EndKind kind)
{
    if (m_ending) {
        return;
    }
    m_ending = true;
    m_endKind = kind;
    m_userInformation->Stop();
    if (m_tabs) {
        m_tabs->TakeEnding();
    }
    if (m_settings) {
        m_settings->Close();
    }
    // A question of a module may be open: its code must be left before the module can go.
    NestedLoops::LeaveThen(this, [this] { EndOnceWritten(QDeadlineTimer(writeLimit)); });
}

void ClientApplication::TakeSystemEnd()
{
    m_systemEnds = true;
    // What the user chose a moment ago stands, but for a restart: there is nothing to go on in.
    if (!m_ended && (!m_ending || m_endKind == EndKind::Restart)) {
        m_endKind = EndKind::SystemEnd;
    }
}

void ClientApplication::KeepTabsOnDisk()
{
    if (m_tabs && !m_ended) {
        m_tabs->KeepOnDisk();
    }
}

void ClientApplication::EndOnceWritten(const QDeadlineTimer& deadline)
{
    // A change that the user made a moment ago is on its way to the gateway.
    const bool writing = m_services->http.IsWriting() || (m_settings && m_settings->IsOpen());
    if (!m_window || !writing || deadline.hasExpired()) {
        // Meanwhile a page may have asked something.
        NestedLoops::LeaveThen(this, [this] { EndNow(); });
        return;
    }
    QTimer::singleShot(writePause, this, [this, deadline] { EndOnceWritten(deadline); });
}

void ClientApplication::EndNow()
{
    m_ending = true; // also where the event loop was ended from outside
    m_ended = true;
    const EndKind kind = m_endKind;
    m_startProblem = tr("The client could not be started again. Start it by hand.");
    m_settings.reset();
    // A restart without its tabs leaves as little behind as a quit.
    const EndKind forTabs = kind == EndKind::Restart && !m_openTabsAgain ? EndKind::Quit : kind;
    if (m_tabs) {
        m_tabs->BeforeEnd(forTabs, m_ignoreUrl);
    }
    if (EndsSession(kind)) {
        m_lifeCycle.LogOut();
    }
    if (kind == EndKind::SystemEnd || kind == EndKind::Refused) {
        m_lifeCycle.PassOverMainFrameQuit();
    } else {
        m_lifeCycle.MainFrameQuit();
    }
    if (m_tabs) {
        m_tabs->AfterMainFrameQuit(forTabs);
        m_tabs.reset();
    }
    if (m_window) {
        m_window->GetWindow()->CloseAllTabs();
        m_lifeCycle.BeforeMainFrameDestruct();
        m_notices.SetBar(nullptr);
        m_screenshot.reset();
        m_window.reset();
    }
    m_loginFlow->CloseDialog();
    m_lifeCycle.ExitApp();
    m_services->router.SetModules({});
    m_services->http.DropCalls();
    m_services->images.DropRequests();
    m_loader.Unload();
    if (EndsSession(kind)) {
        EndSession();
        return;
    }
    if (kind == EndKind::Restart) {
        m_handover = SessionHandover{m_session, m_openTabsAgain};
    }
    Finish();
}

void ClientApplication::EndSession()
{
    const auto waiting = std::make_shared<int>(2);
    const auto ended = [this, waiting] {
        if (--*waiting == 0) {
            Finish();
        }
    };
    m_kept->Forget(ended);
    if (m_refusal.isEmpty() && !m_session.IsEmpty()) {
        connect(m_loginService.get(), &LoginService::SigLoggedOut, this, ended);
        m_loginService->LogOut(m_session, endSessionLimit);
    } else {
        ended();
    }
    QTimer::singleShot(endSessionLimit, this, &ClientApplication::Finish);
}

void ClientApplication::Finish()
{
    m_services->ClearSession();
    QCoreApplication::exit(m_exitCode);
}
