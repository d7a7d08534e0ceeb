#pragma once

#include "http/HttpExport.h"
#include "http/IHttpResponse.h"
#include "http/ResponseCacheSide.h"

#include <QtCore/QJsonValue>

/// A response whose body is JSON: keeps the outcome and passes the parsed reply on. A body that is not JSON
/// is an error with its own description, and the server's fault.
class TL_HTTP_EXPORT IHttpResponseBase : public IHttpResponse, public ResponseCacheSide
{
    Q_OBJECT

public:
    explicit IHttpResponseBase(QObject* parent = nullptr);
    ~IHttpResponseBase() override;

    void SetData(const QByteArray& data) override;
    bool IsSuccess() const override;
    QString GetErrorCode() const override;
    QString GetErrorDesc() const override;
    /// True when the current outcome is the server's own fault.
    bool ShouldRetry() const override;
    void DoReset() override;
    /// "0".
    QString GetSuccessCode() const override;
    /// The number as text becomes the error code. It counts as the server's own fault, unless nothing was
    /// sent (`HttpError::SwitchedOff`, `HttpError::InvalidAddress`).
    void SetNetworkError(int error, const QString& description) override;
    /// Takes the whole reply as JSON, any value. Sets the outcome through `SetOutcome`.
    virtual void ParseJsonData(const QJsonValue& reply) = 0;

    /// Whether the outcome comes from a kept reply, which was true when it was kept.
    bool IsFromCache() const noexcept;

protected:
    /// `serverError`: the fault is the server's own, so the call may be tried again and a kept reply may
    /// serve. Never set it for a refusal.
    void SetOutcome(bool success, const QString& code, const QString& description, bool serverError = false);
    /// Sets the outcome of an unreadable reply: code "parse", the server's own fault.
    void SetUnreadable(const QString& description);
    void SetAutoCacheEnabled(bool enabled) noexcept;

private:
    friend class ResponseCacheSide;

    struct Outcome
    {
        QByteArray data;
        QString code;
        QString description;
        bool success = false;
        bool serverError = false;
        bool fromCache = false;
    };

    Outcome m_outcome;
    bool m_autoCache = false;
};
