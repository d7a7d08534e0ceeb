#pragma once

#include <QtNetwork/QNetworkProxyFactory>

/// The application's proxies, but none for this machine.
class LoopbackProxyFactory final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override;
};
