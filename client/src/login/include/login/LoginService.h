#pragma once

#include "login/Session.h"

#include "login/LoginProblem.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Logs in at the gateway and out again, one call at a time. GUI thread.
class LoginService final : public QObject
{
    Q_OBJECT

public:
    explicit LoginService(QObject* parent = nullptr);

    /// Emits `SigLoggedIn` or `SigFailed` later, unless cancelled.
    void LogIn(const QString& pin, const QString& password);
    /// Ignores the outcome of a running log-in, and ends the token if it succeeds after all.
    void Cancel();
    /// Tries to end the session's token at the gateway. Emits `SigLoggedOut` after `timeout` [ms] at the
    /// latest.
    void LogOut(const Session& session, int timeout);

    /// What the error of a failed call means for the log-in.
    static LoginProblem ToProblem(const QString& code, const QString& description);

Q_SIGNALS:
    void SigLoggedIn(const Session& session);
    /// `pin` is the account that was tried.
    void SigFailed(const QString& pin, const LoginProblem& problem);
    void SigLoggedOut();

private:
    int m_attempt = 0; ///< the log-in whose outcome counts
};
