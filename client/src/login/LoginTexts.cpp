#include "LoginTexts.h"

#include <QtCore/QLocale>

namespace {

QString LocalTime(const QDateTime& when)
{
    return QLocale().toString(when.toLocalTime().time(), QLocale::ShortFormat);
}

QString LocalDateTime(const QDateTime& when)
{
    return QLocale().toString(when.toLocalTime(), QLocale::ShortFormat);
}

} // namespace

QString LoginTexts::Describe(const LoginProblem& problem)
{
    switch (problem.kind) {
    case LoginProblem::Kind::None:
        return QString();
    case LoginProblem::Kind::EmptyPin:
        return tr("Please enter your account.");
    case LoginProblem::Kind::EmptyPassword:
        return tr("Please enter your password.");
    case LoginProblem::Kind::WrongPassword:
        return tr("The account or password is incorrect.");
    case LoginProblem::Kind::TooManyAttempts:
        return problem.when.isValid()
                   ? tr("Too many failed attempts. Please try again at %1.").arg(LocalTime(problem.when))
                   : tr("Too many failed attempts. Please try again in a few minutes.");
    case LoginProblem::Kind::Unreachable:
        return tr("The gateway cannot be reached. Please check the network connection.");
    case LoginProblem::Kind::TimedOut:
        return tr("The gateway did not answer in time. Please try again.");
    case LoginProblem::Kind::ClockOff:
        return problem.when.isValid()
                   ? tr("This computer's clock is wrong. It should show %1. Please correct it.")
                         .arg(LocalDateTime(problem.when))
                   : tr("This computer's clock is wrong. Please correct it.");
    case LoginProblem::Kind::NotSetUp:
        return tr("This client is not set up for this gateway. Please contact your administrator.");
    case LoginProblem::Kind::ServerBusy:
        return tr("The gateway is busy. Please try again shortly.");
    case LoginProblem::Kind::Unreadable:
        return tr("The reply could not be read. Is this the gateway's address?");
    case LoginProblem::Kind::Refused:
        return problem.detail.isEmpty() ? tr("The gateway refused the log-in.")
                                        : tr("The gateway refused the log-in: %1").arg(problem.detail);
    case LoginProblem::Kind::SessionExpired:
        return tr("Your session has expired. Please log in again.");
    case LoginProblem::Kind::SessionRefused:
        return tr("Your session is no longer valid. Please log in again.");
    }
    return QString();
}
