#pragma once

#include "http-module/IDsmGateway.h"

/// The client's side of the gateway, with a clock that can be wrong.
class ContractClient final : public IDsmGateway
{
public:
    DsmGatewayConfig GetConfig() const override { return config; }
    QDateTime GetCurrentTime() const override { return QDateTime::currentDateTimeUtc().addSecs(clockError); }

    DsmGatewayConfig config;
    qint64 clockError = 0; ///< [s]
};
