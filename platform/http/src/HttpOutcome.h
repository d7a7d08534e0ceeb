#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class IHttpResponse;
class QNetworkReply;

/// Puts what came back from the network into a response. GUI thread.
class HttpOutcome final
{
    Q_DECLARE_TR_FUNCTIONS(HttpOutcome)

public:
    HttpOutcome() = delete;

    /// `reply` has finished, and `body` is everything that was read from it.
    static void Take(const QNetworkReply& reply, const QByteArray& body, IHttpResponse* response);

private:
    static void TakeErrorStatus(int error, int status, const QByteArray& body, IHttpResponse* response);
    static void TakeTransportError(int error, const QString& text, IHttpResponse* response);
    /// A sentence for the user; `text` is what Qt says about the error.
    static QString DescribeTransportError(int error, const QString& text);
};
