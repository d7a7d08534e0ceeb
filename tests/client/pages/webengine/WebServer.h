#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>

/// A web server on a free port of the loopback, for a handful of pages.
class WebServer final : public QTcpServer
{
    Q_OBJECT

public:
    WebServer();
    /// Speaks TLS alone, with a certificate that it signed itself.
    void UseTls();

    void SetPage(const QString& path, const QByteArray& body, const QByteArray& status = "200 OK",
                 const QByteArray& headers = "Content-Type: text/html; charset=utf-8\r\n");
    enum class AfterReply
    {
        Close,
        Wait // for more that never comes
    };
    /// A reply as it goes over the line, status line and headers included.
    void SetReply(const QString& path, const QByteArray& reply, AfterReply after = AfterReply::Close);
    /// Shows the page to those alone who give this name and password.
    void Protect(const QString& path, const QByteArray& nameAndPassword);
    QUrl GetUrl(const QString& path) const;
    QStringList GetRequests() const { return m_requests; }

protected:
    void incomingConnection(qintptr handle) override;

private:
    void Answer(QTcpSocket* socket);

    QHash<QString, QByteArray> m_answers; // whole replies by path
    QHash<QString, QByteArray> m_protected;
    QSet<QString> m_waiting; // the paths after whose reply the connection stays open
    bool m_tls = false;
    QStringList m_requests; // paths in the order in which they were asked for
};
