#pragma once

#include "core/TLGlobalData.h"
#include "http-module/IHttpRequestDsm.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

/// Any method that needs to know no more than who asks.
class UserRequest final : public IHttpRequestDsm
{
public:
    explicit UserRequest(const QString& method) : m_method(method) {}

    QString GetDsmMethod() const override { return m_method; }
    QByteArray GetBusinessParam() const override
    {
        return QJsonDocument(QJsonObject{{QStringLiteral("param"), GetCaller()}})
            .toJson(QJsonDocument::Compact);
    }

    /// Who asks: the signed-in user on this device.
    static QJsonObject GetCaller()
    {
        const TLGlobalData* const user = TLGlobalData::Instance();
        return {{QStringLiteral("belongType"), user->GetBelongType()},
                {QStringLiteral("deviceId"), user->GetUUID()},
                {QStringLiteral("pin"), user->GetPin()},
                {QStringLiteral("platform"), QStringLiteral("pc-win")}};
    }

private:
    QString m_method;
};
