#include "CachedReplyResponse.h"

#include <QtCore/QJsonValue>

CachedReplyResponse::CachedReplyResponse(QObject* parent) : IHttpResponseDsm(parent)
{
    SetAutoCache(true);
}

CachedReplyResponse::~CachedReplyResponse() = default;

QSharedPointer<BusinessParseResult> CachedReplyResponse::ParseBusinessData(const QJsonValue& data)
{
    return QSharedPointer<BusinessParseResult>::create(data.isObject() || data.isArray(), QString());
}
