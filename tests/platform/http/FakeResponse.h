#pragma once

#include "http/IHttpResponseBase.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// Takes `{"code":…,"value":…}`; "0" is a success, codes from 5000 on are the server's own fault.
class FakeResponse final : public IHttpResponseBase
{
public:
    explicit FakeResponse(bool autoCache = false) { SetAutoCacheEnabled(autoCache); }

    void ParseJsonData(const QJsonValue& reply) override
    {
        const QString code = reply.toObject().value(QLatin1String("code")).toString();
        if (code.isEmpty()) {
            SetUnreadable(QStringLiteral("no code"));
            return;
        }
        value = reply.toObject().value(QLatin1String("value")).toString();
        SetOutcome(code == GetSuccessCode(), code,
                   code == GetSuccessCode() ? QString() : QStringLiteral("said no"), code.toInt() >= 5000);
    }
    void DoReset() override
    {
        IHttpResponseBase::DoReset();
        ++resets;
    }

    QString value;
    int resets = 0;
};
