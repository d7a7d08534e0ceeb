#include "plain/PlainPageFactory.h"

#include "PlainTabPage.h"

#include <QtNetwork/QNetworkCookieJar>
#include <QtNetwork/QNetworkRequest>

namespace {

constexpr int SilenceLimit = 30000; // [ms]

} // namespace

PlainPageFactory::PlainPageFactory(const QString& language, QObject* parent) : IPageFactory(parent)
{
    m_network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy); // each step is looked at
    SetLanguage(language);
}

std::unique_ptr<ITabPage> PlainPageFactory::CreatePage(QWidget* parent)
{
    const auto fetch = [this](const QUrl& url) {
        QNetworkRequest request(url);
        request.setRawHeader("Accept",
                             "text/html,application/xhtml+xml,application/json,text/*;q=0.9,*/*;q=0.1");
        request.setRawHeader("Accept-Language", m_language);
        request.setTransferTimeout(SilenceLimit);
        return m_network.get(request);
    };
    return std::make_unique<PlainTabPage>(fetch, parent);
}

void PlainPageFactory::SetLanguage(const QString& language)
{
    m_language =
        language == QLatin1String("zh_CN") ? QByteArrayLiteral("zh-CN,zh,en") : QByteArrayLiteral("en");
}

bool PlainPageFactory::ClearData()
{
    m_network.setCookieJar(new QNetworkCookieJar); // owned by the network object from here on
    m_network.clearAccessCache();
    return true;
}
