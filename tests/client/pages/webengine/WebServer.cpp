#include "WebServer.h"

#include <QtCore/QFile>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslSocket>

WebServer::WebServer()
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

void WebServer::UseTls()
{
    m_tls = true;
}

void WebServer::incomingConnection(qintptr handle)
{
    if (!m_tls) {
        QTcpServer::incomingConnection(handle);
        return;
    }
    QFile file(QStringLiteral(TL_TEST_CERTIFICATE)); // the key stands in it, too
    const bool open = file.open(QIODevice::ReadOnly);
    Q_ASSERT(open);
    const QByteArray pem = file.readAll();
    auto* socket = new QSslSocket(this);
    socket->setSocketDescriptor(handle);
    socket->setLocalCertificate(QSslCertificate(pem));
    socket->setPrivateKey(QSslKey(pem, QSsl::Rsa));
    socket->startServerEncryption();
    addPendingConnection(socket);
}

void WebServer::SetPage(const QString& path, const QByteArray& body, const QByteArray& status,
                        const QByteArray& headers)
{
    m_answers.insert(path, "HTTP/1.1 " + status + "\r\n" + headers + "Connection: close\r\nContent-Length: " +
                               QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

void WebServer::SetReply(const QString& path, const QByteArray& reply, AfterReply after)
{
    m_answers.insert(path, reply);
    if (after == AfterReply::Wait) {
        m_waiting.insert(path);
    }
}

void WebServer::Protect(const QString& path, const QByteArray& nameAndPassword)
{
    m_protected.insert(path, "Authorization: Basic " + nameAndPassword.toBase64() + "\r\n");
}

QUrl WebServer::GetUrl(const QString& path) const
{
    return QUrl(QStringLiteral("%1://127.0.0.1:%2%3")
                    .arg(m_tls ? QStringLiteral("https") : QStringLiteral("http"))
                    .arg(serverPort())
                    .arg(path));
}

void WebServer::Answer(QTcpSocket* socket)
{
    if (!socket->canReadLine()) {
        return;
    }
    const QString path = QString::fromLatin1(socket->readLine().split(' ').value(1));
    const QByteArray headers = socket->readAll();
    m_requests << path;
    if (!headers.contains(m_protected.value(path))) {
        socket->write("HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"Orders\"\r\n"
                      "Content-Type: text/html\r\nContent-Length: 24\r\nConnection: close\r\n\r\n"
                      "<title>stranger</title>x");
        socket->disconnectFromHost();
        return;
    }
    socket->write(
        m_answers.value(path, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"));
    if (!m_waiting.contains(path)) {
        socket->disconnectFromHost();
    }
}
