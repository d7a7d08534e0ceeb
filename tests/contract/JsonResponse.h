#pragma once

#include "http-module/IHttpResponseDsm.h"

#include <QtCore/QJsonValue>

/// Keeps the business value as it came.
class JsonResponse final : public IHttpResponseDsm
{
public:
    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override
    {
        m_value = data;
        return QSharedPointer<BusinessParseResult>::create(true, QString());
    }

    QJsonValue GetValue() const { return m_value; }

private:
    QJsonValue m_value{QJsonValue::Undefined};
};
