#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// A log-in that the gateway granted.
struct Session
{
    QString pin;
    QString belongType;
    QString accessToken;
    QDateTime expiresAt; ///< UTC; invalid when the gateway named none

    bool IsEmpty() const { return accessToken.isEmpty(); }
};
