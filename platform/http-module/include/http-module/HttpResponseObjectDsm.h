#pragma once

#include "http-module/IHttpResponseDsm.h"

#include <QtCore/QJsonObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>

/// A gateway reply whose business value is one record. `T` derives from `VXJsonParserBase` and has a default
/// constructor.
template <class T>
class HttpResponseObjectDsm : public IHttpResponseDsm
{
public:
    explicit HttpResponseObjectDsm(QObject* parent = nullptr)
        : IHttpResponseDsm(parent), m_entity(QSharedPointer<T>::create())
    {}
    ~HttpResponseObjectDsm() override = default;

    /// JSON null is a success that leaves the record alone. A record of which only a part could be parsed
    /// keeps that part, and the reply is not a success.
    QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) override
    {
        if (data.isNull()) {
            return QSharedPointer<BusinessParseResult>::create(true, QString());
        }
        if (!data.isObject()) {
            return QSharedPointer<BusinessParseResult>::create(
                false, QStringLiteral("business data is not json object."));
        }
        if (!m_entity) {
            return QSharedPointer<BusinessParseResult>::create(false, QStringLiteral("entity is nullptr."));
        }
        m_entity->Parse(data.toObject());
        const QStringList errors = m_entity->GetParseError();
        return QSharedPointer<BusinessParseResult>::create(errors.isEmpty(), errors.join(QLatin1Char('\n')));
    }

    /// The record that holds the reply, shared with the response.
    QSharedPointer<T> GetEntity() const { return m_entity; }
    /// Sets the record to parse into; an empty pointer makes the parse fail.
    void SetEntity(const QSharedPointer<T>& entity) { m_entity = entity; }

private:
    QSharedPointer<T> m_entity;
};
