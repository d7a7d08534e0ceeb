#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// Why the user is not logged in, or no longer, for the log-in dialog.
struct LoginProblem
{
    enum class Kind
    {
        None,
        EmptyPin,
        EmptyPassword,
        WrongPassword,
        TooManyAttempts, ///< `when`: the earliest time to try again; invalid when unknown
        Unreachable,
        TimedOut,
        ClockOff, ///< `when`: the gateway's time; invalid when unknown
        NotSetUp, ///< the gateway does not know this client
        ServerBusy,
        Unreadable,
        Refused,        ///< any other refusal by the gateway
        SessionExpired, ///< the session's time is over
        SessionRefused  ///< the gateway no longer accepts the session, or its token is gone
    };

    Kind kind = Kind::None;
    QString detail; ///< message of the network or the gateway, for a tool tip; may be empty
    QDateTime when; ///< UTC
};
