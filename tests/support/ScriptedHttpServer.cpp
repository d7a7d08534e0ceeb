#include "ScriptedHttpServer.h"

#include <QtNetwork/QTcpSocket>

#include <utility>

namespace {

// Takes one request off the front of `bytes`. False while it is incomplete.
bool TakeRequest(QByteArray& bytes, RecordedRequest& request)
{
    const int headEnd = bytes.indexOf("\r\n\r\n");
    if (headEnd < 0) {
        return false;
    }
    QList<QByteArray> lines = bytes.left(headEnd).split('\n');
    const QList<QByteArray> first = lines.takeFirst().trimmed().split(' ');
    for (const QByteArray& line : std::as_const(lines)) {
        const int colon = line.indexOf(':');
        request.headers.insert(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    const int bodySize = request.headers.value("content-length").toInt();
    if (bytes.size() < headEnd + 4 + bodySize) {
        return false;
    }
    request.method = first.value(0);
    request.target = first.value(1);
    request.body = bytes.mid(headEnd + 4, bodySize);
    bytes.remove(0, headEnd + 4 + bodySize);
    return true;
}

QByteArray HeadOf(const ScriptedReply& reply, bool withLength)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Scripted\r\n";
    for (const auto& header : reply.headers) {
        head += header.first + ": " + header.second + "\r\n";
    }
    head += withLength ? "Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n"
                       : QByteArray("Connection: close\r\n");
    return head + "\r\n";
}

} // namespace

ScriptedHttpServer::ScriptedHttpServer(QObject* parent) : QObject(parent)
{
    m_standing.status = 500;
    m_clock.start();
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedHttpServer::OnConnection);
    if (!m_server.listen(QHostAddress::LocalHost, 0)) {
        qFatal("The scripted server found no free port: %s", qPrintable(m_server.errorString()));
    }
}

ScriptedHttpServer::~ScriptedHttpServer()
{
    const QList<QTcpSocket*> sockets = m_incoming.keys();
    for (QTcpSocket* const socket : sockets) {
        socket->disconnect(this);
    }
}

quint16 ScriptedHttpServer::GetPort() const
{
    return m_server.serverPort();
}

QUrl ScriptedHttpServer::GetUrl(const QString& path) const
{
    QUrl url;
    url.setScheme(QStringLiteral("http"));
    url.setHost(QStringLiteral("127.0.0.1"));
    url.setPort(GetPort());
    url.setPath(path);
    return url;
}

void ScriptedHttpServer::Enqueue(const ScriptedReply& reply)
{
    m_replies.append(reply);
}

void ScriptedHttpServer::SetStanding(const ScriptedReply& reply)
{
    m_standing = reply;
}

void ScriptedHttpServer::Release()
{
    const auto held = std::exchange(m_held, {});
    for (const auto& [socket, reply] : held) {
        if (socket) {
            Answer(socket, reply);
        }
    }
}

void ScriptedHttpServer::OnConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        ++m_connectionCount;
        m_incoming.insert(socket, QByteArray());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnReadyRead(socket); });
        connect(socket, &QTcpSocket::bytesWritten, this, [this](qint64 count) { m_bytesSent += count; });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_incoming.remove(socket);
            socket->deleteLater();
        });
        OnReadyRead(socket);
    }
}

void ScriptedHttpServer::OnReadyRead(QTcpSocket* socket)
{
    m_incoming[socket] += socket->readAll();
    RecordedRequest request;
    while (m_incoming.contains(socket) && TakeRequest(m_incoming[socket], request)) {
        request.arrival = m_clock.elapsed();
        m_requests.append(request);
        request = RecordedRequest();
        const ScriptedReply reply = m_replies.isEmpty() ? m_standing : m_replies.takeFirst();
        if (reply.held) {
            m_held.append({socket, reply});
        } else {
            Answer(socket, reply);
        }
        Q_EMIT SigRequest();
    }
}

void ScriptedHttpServer::Answer(QTcpSocket* socket, const ScriptedReply& reply)
{
    switch (reply.kind) {
    case ScriptedReply::Kind::Whole:
        socket->write(HeadOf(reply, true) + reply.body);
        break;
    case ScriptedReply::Kind::NoLength:
        socket->write(HeadOf(reply, false) + reply.body);
        socket->disconnectFromHost();
        break;
    case ScriptedReply::Kind::Cut:
        socket->write(HeadOf(reply, true) + reply.body.left(reply.body.size() / 2));
        socket->disconnectFromHost();
        break;
    case ScriptedReply::Kind::Raw:
        socket->write(reply.body);
        socket->disconnectFromHost();
        break;
    case ScriptedReply::Kind::Endless:
        socket->write(HeadOf(reply, false));
        // Queued, because on Windows writing in the signal handler would starve the other events.
        connect(
            socket, &QTcpSocket::bytesWritten, socket, [this, socket] { Feed(socket); },
            Qt::QueuedConnection);
        Feed(socket);
        break;
    case ScriptedReply::Kind::Close:
        socket->disconnectFromHost();
        break;
    case ScriptedReply::Kind::Never:
        break;
    }
}

void ScriptedHttpServer::Feed(QTcpSocket* socket)
{
    if (socket->state() == QAbstractSocket::ConnectedState && socket->bytesToWrite() < qint64(256) * 1024) {
        socket->write(QByteArray(256 * 1024, ' '));
    }
}
