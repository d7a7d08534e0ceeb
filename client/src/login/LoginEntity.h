#pragma once

#include "login/Session.h"

#include "base/VXJsonParserBase.h"

/// The gateway's reply to a log-in.
class LoginEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString accessToken MEMBER m_accessToken)
    Q_PROPERTY(QString belongType MEMBER m_belongType)
    Q_PROPERTY(QString expiresAt MEMBER m_expiresAt)
    Q_PROPERTY(QString pin MEMBER m_pin)

public:
    explicit LoginEntity(QObject* parent = nullptr) : VXJsonParserBase(parent) {}

    /// Empty when the reply lacks the token or the pin.
    Session ToSession() const;

private:
    QString m_accessToken;
    QString m_belongType;
    QString m_expiresAt;
    QString m_pin;
};
