#include "http/IHttpResponseBase.h"

#include "http/HttpError.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <optional>

namespace {

std::optional<QJsonValue> ReadJson(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (document.isObject()) {
        return QJsonValue(document.object());
    }
    if (document.isArray()) {
        return QJsonValue(document.array());
    }
    // A document is an object or an array; any other value can be read as the only element of an array.
    const QJsonArray wrapped = QJsonDocument::fromJson('[' + text + ']').array();
    if (wrapped.size() == 1) {
        return wrapped.first();
    }
    return std::nullopt;
}

} // namespace

IHttpResponseBase::IHttpResponseBase(QObject* parent) : IHttpResponse(parent) {}

IHttpResponseBase::~IHttpResponseBase() = default;

void IHttpResponseBase::SetData(const QByteArray& data)
{
    m_outcome.data = data;
    if (data.trimmed().isEmpty()) {
        SetUnreadable(tr("The gateway's reply is empty."));
        return;
    }
    const std::optional<QJsonValue> reply = ReadJson(data);
    if (!reply) {
        SetUnreadable(tr("The gateway's reply is not JSON."));
        return;
    }
    ParseJsonData(*reply);
}

bool IHttpResponseBase::IsSuccess() const
{
    return m_outcome.success;
}

QString IHttpResponseBase::GetErrorCode() const
{
    return m_outcome.code;
}

QString IHttpResponseBase::GetErrorDesc() const
{
    return m_outcome.description;
}

bool IHttpResponseBase::ShouldRetry() const
{
    return m_outcome.serverError;
}

void IHttpResponseBase::DoReset()
{
    m_outcome = Outcome();
}

QString IHttpResponseBase::GetSuccessCode() const
{
    return QStringLiteral("0");
}

void IHttpResponseBase::SetNetworkError(int error, const QString& description)
{
    m_outcome.data.clear();
    const bool sent = error != static_cast<int>(HttpError::SwitchedOff) &&
                      error != static_cast<int>(HttpError::InvalidAddress);
    SetOutcome(false, QString::number(error), description, sent);
}

bool IHttpResponseBase::IsFromCache() const noexcept
{
    return m_outcome.fromCache;
}

void IHttpResponseBase::SetOutcome(bool success, const QString& code, const QString& description,
                                   bool serverError)
{
    m_outcome.success = success;
    m_outcome.code = code;
    m_outcome.description = description;
    m_outcome.serverError = !success && serverError;
}

void IHttpResponseBase::SetUnreadable(const QString& description)
{
    SetOutcome(false, QStringLiteral("parse"), description, true);
}

void IHttpResponseBase::SetAutoCacheEnabled(bool enabled) noexcept
{
    m_autoCache = enabled;
}
