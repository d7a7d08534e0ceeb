#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// A session that the gateway granted.
struct Session
{
    QString pin;
    QString belongType;
    QString accessToken;
    QDateTime expiresAt; ///< UTC; invalid when the gateway gave none

    bool IsEmpty() const { return accessToken.isEmpty(); }
};
