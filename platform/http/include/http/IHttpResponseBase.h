#pragma once

#include "http/HttpExport.h"
#include "http/IHttpResponse.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QJsonValue>

/// A response whose body is JSON: keeps the outcome and hands the parsed reply on. A body that is not
/// JSON is an error with a description of its own.
class TL_HTTP_EXPORT IHttpResponseBase : public IHttpResponse, public IResponseCacheMethod
{
    Q_OBJECT

public:
    explicit IHttpResponseBase(QObject* parent = nullptr);
    ~IHttpResponseBase() override;

    void SetData(const QByteArray& data) override;
    bool IsSuccess() const override;
    QString GetErrorCode() const override;
    QString GetErrorDesc() const override;
    bool ShouldRetry() const override;
    void DoReset() override;
    QString GetSuccessCode() const override;
    void SetNetworkError(int error, const QString& description) override;
    /// The whole reply as JSON. Sets the outcome through `SetOutcome`.
    virtual void ParseJsonData(const QJsonValue& reply) = 0;

    bool IsAutoCache() const override;
    bool CanSaveToCache() const override;
    bool NeedReadFromCache() const override;
    QByteArray GetCacheData() const override;
    void SetCacheData(const QByteArray& data) override;

    /// Whether the outcome comes from a kept reply: what it says was true when it was kept.
    bool IsFromCache() const noexcept;

protected:
    void SetOutcome(bool success, const QString& code, const QString& description);
    void SetAutoCacheEnabled(bool enabled) noexcept;
    /// Whether the outcome at hand is the server's own fault; asked by retry and kept replies.
    virtual bool IsServerError() const;

private:
    QByteArray m_data;
    QString m_code;
    QString m_description;
    bool m_success = false;
    bool m_networkError = false;
    bool m_autoCache = false;
    bool m_fromCache = false;
};
