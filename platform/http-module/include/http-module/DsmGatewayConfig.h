#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

/// How to reach the gateway, and what every envelope contains; see docs/gateway-protocol.md.
struct DsmGatewayConfig
{
    QUrl address; ///< empty: no gateway, every call fails
    QString appKey;
    QString appSecret;
    QString accessToken; ///< empty while nobody is signed in
    QString language;    ///< `en`, `zh_CN`
    QString region;      ///< ISO 3166; may be empty
    QString platform;
};
