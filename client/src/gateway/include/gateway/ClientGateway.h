#pragma once

#include "gateway/GatewaySettings.h"

#include "http-module/IDsmGateway.h"

#include <QtCore/QString>

/// The client's configuration for the gateway calls: settings, access token and language as they are now.
class ClientGateway final : public IDsmGateway
{
public:
    explicit ClientGateway(const GatewaySettings& settings);

    DsmGatewayConfig GetConfig() const override;

    /// Empty after the session ended.
    void SetAccessToken(const QString& accessToken) { m_config.accessToken = accessToken; }
    /// `en` or `zh_CN`.
    void SetLanguage(const QString& language) { m_config.language = language; }

private:
    DsmGatewayConfig m_config;
};
