#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

/// Receives the outcome of a call, once per attempt and before the completion runs. GUI thread.
class TL_HTTP_EXPORT IHttpResponse : public QObject
{
    Q_OBJECT

public:
    explicit IHttpResponse(QObject* parent = nullptr);
    ~IHttpResponse() override;

    /// Takes the body of a complete reply.
    virtual void SetData(const QByteArray& data) = 0;
    /// Whether the call succeeded; false before any outcome.
    virtual bool IsSuccess() const = 0;
    /// The service's code, or the transport's; empty before any outcome.
    virtual QString GetErrorCode() const = 0;
    /// What went wrong, for the log and as a hint to the user; empty after a success.
    virtual QString GetErrorDesc() const = 0;
    /// Whether trying the call again makes sense: the network failed, or the server reported a fault of its
    /// own.
    virtual bool ShouldRetry() const = 0;
    /// Called before each attempt: returns to the state before any outcome.
    virtual void DoReset() = 0;
    /// The code that means success.
    virtual QString GetSuccessCode() const = 0;
    /// The call failed in transport. `error` is a QNetworkReply::NetworkError or a negative number of
    /// `HttpError`; `description` is a sentence.
    virtual void SetNetworkError(int error, const QString& description) = 0;
};
