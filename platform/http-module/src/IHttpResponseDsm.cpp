#include "http-module/IHttpResponseDsm.h"

#include <QtCore/QJsonObject>

#include <cmath>

namespace {

// From this code on, the gateway reports its own failure; below it, a refusal.
constexpr qlonglong FirstServerError = 5000;

// A text, as the gateway writes it, or a number; empty for anything else.
QString CodeOf(const QJsonValue& value)
{
    if (!value.isDouble()) {
        return value.toString();
    }
    const double number = value.toDouble();
    const bool integral = std::trunc(number) == number && std::abs(number) < 1e15;
    return integral ? QString::number(static_cast<qlonglong>(number)) : QString::number(number, 'g', 17);
}

bool IsServerErrorCode(const QString& code)
{
    bool isNumber = false;
    return code.toLongLong(&isNumber) >= FirstServerError && isNumber;
}

} // namespace

IHttpResponseDsm::IHttpResponseDsm(QObject* parent) : IHttpResponseBase(parent) {}

IHttpResponseDsm::~IHttpResponseDsm() = default;

void IHttpResponseDsm::ParseJsonData(const QJsonValue& reply)
{
    const QJsonObject envelope = reply.toObject();
    const QString code = CodeOf(envelope.value(QLatin1String("code")));
    if (code.isEmpty()) {
        SetUnreadable(tr("The gateway's reply does not have the expected form."));
        return;
    }
    if (!IsFromCache()) {
        m_requestId = envelope.value(QLatin1String("requestId")).toString();
    }
    if (code != GetSuccessCode()) {
        const QString message = envelope.value(QLatin1String("message")).toString();
        SetOutcome(false, code,
                   message.isEmpty() ? tr("The gateway answered with code %1.").arg(code) : message,
                   IsServerErrorCode(code));
        return;
    }
    const QSharedPointer<BusinessParseResult> parsed =
        ParseBusinessData(envelope.value(QLatin1String("data")));
    if (parsed && parsed->IsSuccess()) {
        SetOutcome(true, code, QString());
        return;
    }
    const QString problem = parsed ? parsed->GetMessage() : QString();
    SetUnreadable(problem.isEmpty() ? tr("The data in the gateway's reply could not be read.") : problem);
}

void IHttpResponseDsm::DoReset()
{
    IHttpResponseBase::DoReset();
    m_requestId.clear();
}

void IHttpResponseDsm::SetAutoCache(bool enabled) noexcept
{
    SetAutoCacheEnabled(enabled);
}

QString IHttpResponseDsm::GetRequestId() const
{
    return m_requestId;
}
