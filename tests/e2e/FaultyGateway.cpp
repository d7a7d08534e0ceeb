#include "FaultyGateway.h"

#include <QtCore/QUrlQuery>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>
#include <QtNetwork/QTcpSocket>

FaultyGateway::FaultyGateway(const QUrl& gateway) : m_gateway(gateway)
{
    m_gateway.setPath(QStringLiteral("/gateway"));
    connect(&m_server, &QTcpServer::newConnection, this, &FaultyGateway::HandleConnection);
    m_server.listen(QHostAddress::LocalHost);
    m_port = m_server.serverPort();
}

FaultyGateway::~FaultyGateway()
{
    Shut();
}

QString FaultyGateway::GetAddress() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_port);
}

void FaultyGateway::SetFault(const QString& method, Fault fault)
{
    m_faults.insert(method, fault);
}

void FaultyGateway::Shut()
{
    m_server.close();
    const QList<QTcpSocket*> sockets = m_received.keys();
    for (QTcpSocket* socket : sockets) {
        socket->abort();
    }
}

bool FaultyGateway::Reopen()
{
    return m_server.listen(QHostAddress::LocalHost, m_port);
}

void FaultyGateway::HandleConnection()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        m_received.insert(socket, QByteArray());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { HandleBytes(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_received.remove(socket);
            socket->deleteLater();
        });
    }
}

void FaultyGateway::HandleBytes(QTcpSocket* socket)
{
    QByteArray& received = m_received[socket];
    received += socket->readAll();
    const int end = received.indexOf("\r\n\r\n");
    if (end < 0) {
        return;
    }
    int length = 0;
    const QList<QByteArray> lines = received.left(end).split('\n');
    for (const QByteArray& line : lines) {
        if (line.toLower().startsWith("content-length:")) {
            length = line.mid(15).trimmed().toInt();
        }
    }
    if (received.size() < end + 4 + length) {
        return;
    }
    const QByteArray body = received.mid(end + 4, length);
    received.remove(0, end + 4 + length);
    Handle(socket, body);
}

void FaultyGateway::Handle(QTcpSocket* socket, const QByteArray& body)
{
    const QString method = QUrlQuery(QString::fromLatin1(body)).queryItemValue(QStringLiteral("method"));
    ++m_calls[method];
    switch (m_faults.value(method, m_faults.value(QString(), Fault::None))) {
    case Fault::None:
        PassOn(socket, method, body);
        break;
    case Fault::Close:
        socket->abort();
        break;
    case Fault::Garbage:
        Reply(socket, 200, "application/json", QByteArray::fromHex("00ff7b22c3286e6f7420"));
        break;
    case Fault::Html:
        Reply(socket, 502, "text/html", "<html><body><h1>502 Bad Gateway</h1></body></html>");
        break;
    case Fault::Huge:
        Reply(socket, 200, "application/json",
              R"({"code":"0","data":")" + QByteArray(5 * 1024 * 1024, 'x') + R"("})");
        break;
    case Fault::Silence:
        break;
    case Fault::Answer:
        Reply(socket, 200, "application/json", m_answer);
        break;
    }
}

void FaultyGateway::PassOn(QTcpSocket* socket, const QString& method, const QByteArray& body)
{
    QNetworkRequest request(m_gateway);
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QStringLiteral("application/x-www-form-urlencoded"));
    QNetworkReply* reply = m_network.post(request, body);
    connect(reply, &QNetworkReply::finished, socket, [this, socket, method, reply] {
        const QByteArray answer = reply->readAll();
        m_replies.insert(method, answer);
        Reply(socket, reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), "application/json",
              answer);
        reply->deleteLater();
    });
}

void FaultyGateway::Reply(QTcpSocket* socket, int status, const QByteArray& type, const QByteArray& body)
{
    socket->write("HTTP/1.1 " + QByteArray::number(status) + " Answer\r\nContent-Type: " + type +
                  "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}
