#include "LoginRequest.h"

#include "core/TLGlobalData.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

LoginRequest::LoginRequest(const QString& pin, const QString& password, QObject* parent)
    : IHttpRequestDsm(parent), m_pin(pin), m_password(password)
{}

LoginRequest::~LoginRequest() = default;

QString LoginRequest::GetDsmMethod() const
{
    return QStringLiteral("dsm.tl.pc.user.login");
}

QByteArray LoginRequest::GetBusinessParam() const
{
    const QJsonObject param{{QStringLiteral("deviceId"), TLGlobalData::Instance()->GetUUID()},
                            {QStringLiteral("password"), m_password},
                            {QStringLiteral("pin"), m_pin},
                            {QStringLiteral("platform"), GetDsmAppendix(DsmType::Platform)}};
    return QJsonDocument(QJsonObject{{QStringLiteral("param"), param}}).toJson(QJsonDocument::Compact);
}

QString LoginRequest::GetCacheKey() const
{
    return QString();
}

QString LoginRequest::GetDsmAppendix(DsmType type) const
{
    return type == DsmType::AccessToken ? QString() : IHttpRequestDsm::GetDsmAppendix(type);
}
