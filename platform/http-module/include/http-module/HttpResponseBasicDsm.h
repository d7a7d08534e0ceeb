#pragma once

#include "http-module/IHttpResponseDsm.h"

#include <QtCore/QJsonValue>

#include <type_traits>

/// A gateway reply whose business value is a single plain value; only bool is supported.
template <class T>
class HttpResponseBasicDsm : public IHttpResponseDsm
{
    static_assert(std::is_same_v<T, bool>, "bool is the one plain value that the gateway answers with");

public:
    explicit HttpResponseBasicDsm(QObject* parent = nullptr) : IHttpResponseDsm(parent) {}
    ~HttpResponseBasicDsm() override = default;

    /// JSON null is a success that leaves the value alone.
    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override
    {
        if (data.isNull()) {
            return QSharedPointer<BusinessParseResult>::create(true, QString());
        }
        if (!data.isBool()) {
            return QSharedPointer<BusinessParseResult>::create(
                false, QStringLiteral("Cannot parse JSON value to bool type"));
        }
        m_value = data.toBool(false);
        return QSharedPointer<BusinessParseResult>::create(true, QString());
    }

    T GetValue() const noexcept { return m_value; }

private:
    T m_value{};
};
