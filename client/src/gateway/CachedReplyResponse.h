#pragma once

#include "http-module/IHttpResponseDsm.h"

/// A reply that is only to be kept: of its content nothing is read but that there is some.
class CachedReplyResponse final : public IHttpResponseDsm
{
    Q_OBJECT

public:
    explicit CachedReplyResponse(QObject* parent = nullptr);
    ~CachedReplyResponse() override;

    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override;
};
