#include "RequestGate.h"

#include <QtCore/QStringList>
#include <QtCore/QUrl>

RequestGate::RequestGate(QObject* parent) : QWebEngineUrlRequestInterceptor(parent) {}

void RequestGate::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    // Web sockets belong to the web; data, blob and about hold what the page brought itself.
    static const QStringList open = {QStringLiteral("ws"), QStringLiteral("wss"), QStringLiteral("data"),
                                     QStringLiteral("blob"), QStringLiteral("about")};
    const QUrl url = info.requestUrl();
    if (!IsWeb(url) && !open.contains(url.scheme())) {
        info.block(true);
    }
}

bool RequestGate::IsWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}
