#pragma once

#include "http-module/IDsmGateway.h"

/// A gateway configuration and a clock in the hands of a test.
class FakeDsmGateway final : public IDsmGateway
{
public:
    FakeDsmGateway()
    {
        config.address = QUrl(QStringLiteral("http://127.0.0.1:1/gateway"));
        config.appKey = QStringLiteral("key");
        config.appSecret = QStringLiteral("secret");
        config.accessToken = QStringLiteral("token");
        config.language = QStringLiteral("en");
        config.region = QStringLiteral("US");
        config.platform = QStringLiteral("pc-win");
    }

    DsmGatewayConfig GetConfig() const override { return config; }
    QDateTime GetCurrentTime() const override { return now; }

    DsmGatewayConfig config;
    QDateTime now = QDateTime(QDate(2026, 2, 3), QTime(4, 5, 6), Qt::UTC);
};
