#pragma once

#include "http-module/IHttpResponseDsm.h"

/// A reply that only goes into the cache: checks that it has content, and reads none of it.
class CachedReplyResponse final : public IHttpResponseDsm
{
    Q_OBJECT

public:
    explicit CachedReplyResponse(QObject* parent = nullptr);
    ~CachedReplyResponse() override;

    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override;
};
