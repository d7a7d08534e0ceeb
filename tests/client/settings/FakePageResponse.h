#pragma once

#include "http/IHttpResponseBase.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// Takes `{"code":…,"value":…}`. A read's reply may be cached.
class FakePageResponse final : public IHttpResponseBase
{
public:
    explicit FakePageResponse(bool isRead) { SetAutoCacheEnabled(isRead); }

    void ParseJsonData(const QJsonValue& reply) override
    {
        const QString code = reply.toObject().value(QLatin1String("code")).toString();
        value = reply.toObject().value(QLatin1String("value")).toString();
        const bool ok = code == GetSuccessCode();
        SetOutcome(ok, code, ok ? QString() : QStringLiteral("said no"), false);
    }

    QString value;
};
