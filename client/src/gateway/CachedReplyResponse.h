#pragma once

#include "http-module/IHttpResponseDsm.h"

/// A reply that only goes into the cache: reads nothing of its content but that there is some.
class CachedReplyResponse final : public IHttpResponseDsm
{
    Q_OBJECT

public:
    explicit CachedReplyResponse(QObject* parent = nullptr);
    ~CachedReplyResponse() override;

    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override;
};
