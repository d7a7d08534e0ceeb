#include "ClientSession.h"

#include "ClientMemory.h"
#include "ClientOptions.h"

#include "login/LoginService.h"
#include "login/SavedSession.h"
#include "login/SystemKeyStore.h"

#include <QtCore/QFile>
#include <QtCore/QTimer>

namespace {

constexpr int EndLimit = 2000; // [ms]

QString ReadFirstLine(const QString& file)
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

} // namespace

ClientSession::ClientSession(QObject* parent)
    : QObject(parent)
    , m_keyStore(std::make_unique<SystemKeyStore>())
    , m_saved(std::make_unique<SavedSession>(m_keyStore.get(), &QDateTime::currentDateTimeUtc))
    , m_service(std::make_unique<LoginService>())
    , m_flow(std::make_unique<LoginFlow>(m_service.get(), m_saved.get(), m_keyStore.get()))
{}

ClientSession::~ClientSession() = default;

void ClientSession::Start(const ClientOptions& options)
{
    if (!options.passwordFile.isEmpty()) {
        m_flow->StartWith(options.pin, ReadFirstLine(options.passwordFile));
        return;
    }
    const QString ended = ClientMemory::TakeSessionEnd();
    const LoginProblem problem = ended.isEmpty() ? LoginProblem() : LoginService::ToProblem(ended, QString());
    if (!options.pin.isEmpty() && options.pin != m_saved->GetPin()) {
        m_flow->ShowDialog(options.pin, problem); // the user wants another account than the saved one
        return;
    }
    m_flow->Start(options.pin.isEmpty() ? ClientMemory::GetLastPin() : options.pin, problem);
}

void ClientSession::Begin(const Session& session)
{
    m_session = session;
    m_refusal.clear();
}

void ClientSession::StartAgain()
{
    const QString pin = m_session.pin;
    m_session = Session();
    m_saved->Forget([] {});
    m_flow->ShowDialog(pin, LoginService::ToProblem(m_refusal, QString()));
}

void ClientSession::CloseDialog()
{
    m_flow->CloseDialog();
}

void ClientSession::End(const std::function<void()>& ended)
{
    const auto waiting = std::make_shared<int>(m_refusal.isEmpty() && !m_session.IsEmpty() ? 2 : 1);
    const auto endOne = [waiting, ended] {
        if (--*waiting == 0) {
            ended();
        }
    };
    QTimer::singleShot(EndLimit, this, [waiting, ended] {
        if (*waiting > 0) {
            *waiting = 0;
            ended();
        }
    });
    const bool logsOut = *waiting == 2;
    m_saved->Forget(endOne);
    if (logsOut) {
        connect(m_service.get(), &LoginService::SigLoggedOut, this, endOne);
        m_service->LogOut(m_session, EndLimit);
    }
}
