#include "HttpOutcome.h"

#include "http/HttpError.h"
#include "http/IHttpResponse.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QVariant>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

namespace {

// Whether the error only repeats the HTTP status; the reply is then complete.
bool IsStatusError(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::ProtocolInvalidOperationError ||
           error == QNetworkReply::ProxyAuthenticationRequiredError ||
           (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError &&
            error != QNetworkReply::ContentReSendError) ||
           (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
}

} // namespace

void HttpOutcome::Take(const QNetworkReply& reply, const QByteArray& body, IHttpResponse* response)
{
    const QNetworkReply::NetworkError error = reply.error();
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 300 && status < 400) {
        response->SetNetworkError(static_cast<int>(HttpError::Redirect),
                                  tr("The gateway redirects to another address (HTTP status %1). The client "
                                     "does not follow redirects.")
                                      .arg(status));
        return;
    }
    if (error != QNetworkReply::NoError && !(status >= 400 && IsStatusError(error))) {
        TakeTransportError(error, reply.errorString(), response);
        return;
    }
    const QVariant announced = reply.header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid() && announced.toLongLong() > body.size()) {
        TakeTransportError(QNetworkReply::RemoteHostClosedError, QString(), response);
        return;
    }
    if (status >= 400) {
        TakeErrorStatus(error, status, body, response);
        return;
    }
    response->SetData(body);
}

void HttpOutcome::TakeTransportError(int error, const QString& text, IHttpResponse* response)
{
    // The server closed the connection, and Qt wanted to send the request again, which the body refuses.
    const int number =
        error == QNetworkReply::ContentReSendError ? QNetworkReply::RemoteHostClosedError : error;
    response->SetNetworkError(number, DescribeTransportError(number, text));
}

void HttpOutcome::TakeErrorStatus(int error, int status, const QByteArray& body, IHttpResponse* response)
{
    // The gateway explains its errors in JSON; anything else comes from a server in between.
    if (QJsonDocument::fromJson(body).isObject()) {
        response->SetData(body);
        if (!response->IsSuccess()) {
            return;
        }
    }
    const QString description = status >= 500 ? tr("The gateway failed with HTTP status %1.")
                                              : tr("The gateway refused the call with HTTP status %1.");
    response->SetNetworkError(error, description.arg(status));
}

QString HttpOutcome::DescribeTransportError(int error, const QString& text)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return tr("The gateway cannot be reached: connection refused.");
    case QNetworkReply::HostNotFoundError:
        return tr("The gateway cannot be reached: its host name is unknown.");
    case QNetworkReply::RemoteHostClosedError:
        return tr("The gateway closed the connection without a complete reply.");
    case QNetworkReply::TimeoutError:
        return tr("The gateway cannot be reached: the connection timed out.");
    case QNetworkReply::SslHandshakeFailedError:
        return tr("The gateway cannot be reached: no secure connection (%1).").arg(text);
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolUnknownError:
        return tr("The gateway's reply is not HTTP.");
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return tr("The gateway cannot be reached: the proxy failed (%1).").arg(text);
    default:
        return tr("The gateway cannot be reached: %1.").arg(text);
    }
}
