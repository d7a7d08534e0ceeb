#include "http-module/IHttpRequestDsm.h"

#include "core/TLGlobalData.h"
#include "http-module/IDsmGateway.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QLocale>
#include <QtCore/QMessageAuthenticationCode>
#include <QtCore/QUrl>

namespace {

const QLatin1String SignName("sign");

} // namespace

IHttpRequestDsm::IHttpRequestDsm(QObject* parent) : IHttpRequestBase(parent) {}

IHttpRequestDsm::~IHttpRequestDsm() = default;

QString IHttpRequestDsm::GetApiUrl() const
{
    QString address = GetDsmAppendix(DsmType::ApiUrl);
    QUrl url(address);
    if (url.host().isEmpty() || (!url.path().isEmpty() && url.path() != QLatin1String("/"))) {
        return address;
    }
    url.setPath(QStringLiteral("/gateway"));
    return url.toString(QUrl::FullyEncoded);
}

QByteArray IHttpRequestDsm::GetApiBody()
{
    InitParam();
    QByteArray body;
    for (auto it = m_parameters.cbegin(); it != m_parameters.cend(); ++it) {
        if (!body.isEmpty()) {
            body += '&';
        }
        // Encodes everything but letters, digits and "-._~" as %XX of the UTF-8 bytes, a space, too.
        body += QUrl::toPercentEncoding(it.key()) + '=' + QUrl::toPercentEncoding(it.value());
    }
    return body;
}

QByteArray IHttpRequestDsm::GetMethodName() const
{
    return GetDsmMethod().toUtf8();
}

void IHttpRequestDsm::DoReset()
{
    IHttpRequestBase::DoReset();
    m_parameters.clear();
}

QString IHttpRequestDsm::GetDsmAppendix(DsmType type) const
{
    const DsmGatewayConfig config = IDsmGateway::Instance()->GetConfig();
    switch (type) {
    case DsmType::ApiUrl:
        return config.address.toString(QUrl::FullyEncoded);
    case DsmType::AppKey:
        return config.appKey;
    case DsmType::AppSecret:
        return config.appSecret;
    case DsmType::AccessToken:
        return config.accessToken;
    case DsmType::Language:
        return config.language;
    case DsmType::Region:
        return config.region;
    case DsmType::Platform:
        return config.platform;
    }
    return QString();
}

void IHttpRequestDsm::InitParam()
{
    const QDateTime now = IDsmGateway::Instance()->GetCurrentTime().toUTC();
    m_parameters = {
        {QStringLiteral("method"), GetDsmMethod()},
        {QStringLiteral("app_key"), GetDsmAppendix(DsmType::AppKey)},
        {QStringLiteral("access_token"), GetDsmAppendix(DsmType::AccessToken)},
        {QStringLiteral("timestamp"), QLocale::c().toString(now, QStringLiteral("yyyy-MM-dd hh:mm:ss"))},
        {QStringLiteral("format"), QStringLiteral("json")},
        {QStringLiteral("lang"), GetDsmAppendix(DsmType::Language)},
        {QStringLiteral("region"), GetDsmAppendix(DsmType::Region)},
        {QStringLiteral("platform"), GetDsmAppendix(DsmType::Platform)},
        {QStringLiteral("tradix_param_json"), QString::fromUtf8(GetBusinessParam())},
    };
    const QByteArray signature = Sign(m_parameters, GetDsmAppendix(DsmType::AppSecret));
    m_parameters.insert(SignName, QString::fromLatin1(signature));
}

QString IHttpRequestDsm::GetCacheKey() const
{
    const TLGlobalData& user = *TLGlobalData::Instance();
    if (user.GetPin().isEmpty()) {
        return QString();
    }
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const QByteArray parts[] = {user.GetPin().toUtf8(),  user.GetBelongType().toUtf8(),
                                GetApiUrl().toUtf8(),    GetDsmAppendix(DsmType::AppKey).toUtf8(),
                                GetDsmMethod().toUtf8(), GetBusinessParam()};
    for (const QByteArray& part : parts) {
        // Includes the length, so that no two lists of parts give the same bytes.
        hash.addData(QByteArray::number(part.size()) + ':' + part);
    }
    return QString::fromLatin1(hash.result().toHex());
}

QByteArray IHttpRequestDsm::Sign(const QMap<QString, QString>& parameters, const QString& secret)
{
    QMap<QByteArray, QByteArray> sorted; // by bytes, unlike QString
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it) {
        if (it.key() != SignName) {
            sorted.insert(it.key().toUtf8(), it.value().toUtf8());
        }
    }
    QMessageAuthenticationCode code(QCryptographicHash::Sha256, secret.toUtf8());
    for (auto it = sorted.cbegin(); it != sorted.cend(); ++it) {
        code.addData(it.key() + '=' + it.value() + '\n');
    }
    return code.result().toHex();
}
