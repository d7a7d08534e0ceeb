#pragma once

#include "UserRequest.h"

/// Replaces the user's configuration.
class WriteRequest final : public IHttpRequestDsm
{
public:
    explicit WriteRequest(const QJsonObject& configuration) : m_configuration(configuration) {}

    QString GetDsmMethod() const override { return QStringLiteral("dsm.tl.pc.auto.run.set"); }
    QByteArray GetBusinessParam() const override
    {
        return QJsonDocument(QJsonObject{{QStringLiteral("baseInfo"), UserRequest::GetCaller()},
                                         {QStringLiteral("workstationSetResult"), m_configuration}})
            .toJson(QJsonDocument::Compact);
    }

private:
    QJsonObject m_configuration;
};
