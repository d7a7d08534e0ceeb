#include "LoopbackProxyFactory.h"

#include <QtNetwork/QHostAddress>

QList<QNetworkProxy> LoopbackProxyFactory::queryProxy(const QNetworkProxyQuery& query)
{
    const QString host = query.peerHostName();
    if (host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 ||
        QHostAddress(host).isLoopback()) {
        return {QNetworkProxy(QNetworkProxy::NoProxy)};
    }
    return proxyForQuery(query);
}
