#pragma once

#include "http-module/IHttpResponseDsm.h"

/// A reply that is only to be kept: of its content nothing is read but that there is some.
class KeptReplyResponse final : public IHttpResponseDsm
{
    Q_OBJECT

public:
    explicit KeptReplyResponse(QObject* parent = nullptr);
    ~KeptReplyResponse() override;

    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override;
};
