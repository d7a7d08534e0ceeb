#include "settings/KeptReplyResponse.h"

#include <QtCore/QJsonValue>

KeptReplyResponse::KeptReplyResponse(QObject* parent) : IHttpResponseDsm(parent)
{
    SetAutoCache(true);
}

KeptReplyResponse::~KeptReplyResponse() = default;

QSharedPointer<BusinessParseResult> KeptReplyResponse::ParseBusinessData(const QJsonValue& data)
{
    return QSharedPointer<BusinessParseResult>::create(data.isObject() || data.isArray(), QString());
}
