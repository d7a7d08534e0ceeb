#pragma once

#include "core/TLGlobalData.h"
#include "http-module/IHttpRequestDsm.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

/// Asks for an access token.
class LoginRequest final : public IHttpRequestDsm
{
public:
    LoginRequest(const QString& pin, const QString& password) : m_pin(pin), m_password(password) {}

    QString GetDsmMethod() const override { return QStringLiteral("dsm.tl.pc.user.login"); }
    QByteArray GetBusinessParam() const override
    {
        const QJsonObject param{{QStringLiteral("deviceId"), TLGlobalData::Instance()->GetUUID()},
                                {QStringLiteral("password"), m_password},
                                {QStringLiteral("pin"), m_pin},
                                {QStringLiteral("platform"), QStringLiteral("pc-win")}};
        return QJsonDocument(QJsonObject{{QStringLiteral("param"), param}}).toJson(QJsonDocument::Compact);
    }

private:
    QString m_pin;
    QString m_password;
};
