#pragma once

#include "base/VXJsonParserBase.h"

/// What the gateway answers to a log-in.
class LoginAnswer final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString accessToken MEMBER m_accessToken)
    Q_PROPERTY(QString belongType MEMBER m_belongType)
    Q_PROPERTY(QString expiresAt MEMBER m_expiresAt)
    Q_PROPERTY(QString pin MEMBER m_pin)

public:
    QString m_accessToken;
    QString m_belongType;
    QString m_expiresAt;
    QString m_pin;
};
