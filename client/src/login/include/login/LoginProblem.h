#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// Why the user is not signed in (any longer), as the log-in dialog says it.
struct LoginProblem
{
    enum class Kind
    {
        None,
        EmptyPin,
        EmptyPassword,
        WrongPassword,
        TooManyAttempts, ///< `when`: from when on to try again; invalid when unknown
        Unreachable,
        TimedOut,
        ClockOff, ///< `when`: the gateway's time; invalid when unknown
        NotSetUp, ///< the gateway does not know this client
        ServerBusy,
        Unreadable,
        Refused,        ///< any other answer of the gateway
        SessionExpired, ///< the session was over
        SessionRefused  ///< the gateway does not take the session (any longer)
    };

    Kind kind = Kind::None;
    QString detail; ///< what the network or the gateway said; shown as a tool tip, may be empty
    QDateTime when; ///< UTC
};
