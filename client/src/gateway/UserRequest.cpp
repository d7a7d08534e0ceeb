#include "gateway/UserRequest.h"

#include "core/TLGlobalData.h"
#include "http-module/IDsmGateway.h"

#include <QtCore/QJsonDocument>

UserRequest::UserRequest(const QString& dsmMethod, QObject* parent)
    : UserRequest(dsmMethod, TLGlobalData::Instance()->GetPin(), TLGlobalData::Instance()->GetBelongType(),
                  parent)
{}

UserRequest::UserRequest(const QString& dsmMethod, const QString& pin, const QString& belongType,
                         QObject* parent)
    : IHttpRequestDsm(parent)
    , m_method(dsmMethod)
    , m_param{{QStringLiteral("belongType"), belongType},
              {QStringLiteral("deviceId"), TLGlobalData::Instance()->GetUUID()},
              {QStringLiteral("pin"), pin},
              {QStringLiteral("platform"), IDsmGateway::Instance()->GetConfig().platform}}
{}

UserRequest::~UserRequest() = default;

QString UserRequest::GetDsmMethod() const
{
    return m_method;
}

QByteArray UserRequest::GetBusinessParam() const
{
    return QJsonDocument(QJsonObject{{QStringLiteral("param"), m_param}}).toJson(QJsonDocument::Compact);
}
