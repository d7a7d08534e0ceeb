#include "gateway/ClientGateway.h"

#include <QtCore/QLocale>

ClientGateway::ClientGateway(const GatewaySettings& settings)
{
    m_config.address = settings.address;
    m_config.appKey = settings.appKey;
    m_config.appSecret = settings.appSecret;
    m_config.language = QStringLiteral("en");
    // A name such as "zh_CN"; the C locale has no region.
    m_config.region = QLocale::system().name().section(QLatin1Char('_'), 1, 1);
    m_config.platform = QStringLiteral("pc-win");
}

DsmGatewayConfig ClientGateway::GetConfig() const
{
    return m_config;
}
