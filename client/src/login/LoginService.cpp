#include "login/LoginService.h"

#include "LoginEntity.h"
#include "LoginRequest.h"
#include "LogoutRequest.h"
#include "gateway/GatewayCodes.h"

#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpError.h"
#include "http/IHttpManager.h"

#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>

namespace {

constexpr int LoginTimeout = 20000;   // [ms]
constexpr int EndTokenTimeout = 5000; // [ms]

// The gateway's messages give times in the envelope's format.
QDateTime TimeIn(const QString& message)
{
    static const QRegularExpression time(QStringLiteral("\\d{4}-\\d{2}-\\d{2} \\d{2}:\\d{2}:\\d{2}"));
    QDateTime found =
        QDateTime::fromString(time.match(message).captured(), QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    found.setTimeSpec(Qt::UTC);
    return found;
}

LoginProblem::Kind KindOf(const QString& code)
{
    if (code == GatewayCodes::WrongPassword) {
        return LoginProblem::Kind::WrongPassword;
    }
    if (code == GatewayCodes::TooManyAttempts) {
        return LoginProblem::Kind::TooManyAttempts;
    }
    if (code == GatewayCodes::ClockOff) {
        return LoginProblem::Kind::ClockOff;
    }
    if (GatewayCodes::IsClientRefused(code) ||
        code == QString::number(static_cast<int>(HttpError::InvalidAddress))) {
        return LoginProblem::Kind::NotSetUp;
    }
    if (code == QString::number(static_cast<int>(HttpError::Timeout))) {
        return LoginProblem::Kind::TimedOut;
    }
    if (GatewayCodes::IsUnreadable(code)) {
        return LoginProblem::Kind::Unreadable;
    }
    if (GatewayCodes::IsTransport(code)) {
        return LoginProblem::Kind::Unreachable;
    }
    if (GatewayCodes::IsServer(code)) {
        return LoginProblem::Kind::ServerBusy;
    }
    if (code == QLatin1String("2003")) {
        return LoginProblem::Kind::SessionExpired;
    }
    if (GatewayCodes::IsSessionRefused(code)) {
        return LoginProblem::Kind::SessionRefused;
    }
    bool isNumber = false;
    const int number = code.toInt(&isNumber);
    return isNumber && number >= 1000 ? LoginProblem::Kind::Refused : LoginProblem::Kind::Unreadable;
}

} // namespace

LoginService::LoginService(QObject* parent) : QObject(parent) {}

void LoginService::LogIn(const QString& pin, const QString& password)
{
    const int attempt = ++m_attempt;
    const auto request = QSharedPointer<LoginRequest>::create(pin, password);
    const auto response = QSharedPointer<HttpResponseObjectDsm<LoginEntity>>::create();
    const QPointer<LoginService> guard(this);
    IHttpManager::Instance()->Send(
        request, response,
        [guard, response, attempt, pin] {
            if (!guard) {
                return;
            }
            const Session session = response->IsSuccess() ? response->GetEntity()->ToSession() : Session();
            if (attempt != guard->m_attempt) {
                if (!session.IsEmpty()) {
                    const auto end = QSharedPointer<LogoutRequest>::create(session);
                    IHttpManager::Instance()->Send(
                        end, QSharedPointer<HttpResponseBasicDsm<bool>>::create(), [] {}, EndTokenTimeout, 1);
                }
                return;
            }
            if (!session.IsEmpty()) {
                Q_EMIT guard->SigLoggedIn(session);
            } else {
                Q_EMIT guard->SigFailed(pin, ToProblem(response->GetErrorCode(), response->GetErrorDesc()));
            }
        },
        LoginTimeout, 1);
}

void LoginService::Cancel()
{
    ++m_attempt;
}

void LoginService::LogOut(const Session& session, int timeout)
{
    const auto request = QSharedPointer<LogoutRequest>::create(session);
    const auto response = QSharedPointer<HttpResponseBasicDsm<bool>>::create();
    const QPointer<LoginService> guard(this);
    IHttpManager::Instance()->Send(
        request, response,
        [guard] {
            if (guard) {
                Q_EMIT guard->SigLoggedOut();
            }
        },
        timeout, 1);
}

LoginProblem LoginService::ToProblem(const QString& code, const QString& description)
{
    return {KindOf(code), description, TimeIn(description)};
}
