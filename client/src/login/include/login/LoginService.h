#pragma once

#include "login/Session.h"

#include "login/LoginProblem.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Logs in at the gateway and out again, one at a time. GUI thread.
class LoginService final : public QObject
{
    Q_OBJECT

public:
    explicit LoginService(QObject* parent = nullptr);

    /// Answered by `SigLoggedIn` or `SigFailed`, unless it is cancelled.
    void LogIn(const QString& pin, const QString& password);
    /// The outcome of a log-in that runs is nobody's any more; a token that still comes is ended.
    void Cancel();
    /// Ends the session's token at the gateway, best effort.
    /// `SigLoggedOut` follows after `timeout` [ms] at the latest.
    void LogOut(const Session& session, int timeout);

    /// What a failed call means to somebody who wants to sign in.
    static LoginProblem ToProblem(const QString& code, const QString& description);

Q_SIGNALS:
    void SigLoggedIn(const Session& session);
    /// `pin` is the one that was tried.
    void SigFailed(const QString& pin, const LoginProblem& problem);
    void SigLoggedOut();

private:
    int m_attempt = 0; // the one whose outcome counts
};
