#pragma once

#include "RecordedRequest.h"
#include "ScriptedReply.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtCore/QVector>
#include <QtNetwork/QTcpServer>

class QTcpSocket;

/// A tiny HTTP server on a free loopback port that answers with the test's queued replies in order, then with
/// the standing one (HTTP 500 without a body unless set). Runs in the test's event loop.
class ScriptedHttpServer final : public QObject
{
    Q_OBJECT

public:
    explicit ScriptedHttpServer(QObject* parent = nullptr);
    ~ScriptedHttpServer() override;

    quint16 GetPort() const;
    /// `http://127.0.0.1:<port><path>`
    QUrl GetUrl(const QString& path = QString()) const;

    void Enqueue(const ScriptedReply& reply);
    void SetStanding(const ScriptedReply& reply);
    /// Sends all held replies.
    void Release();

    const QVector<RecordedRequest>& GetRequests() const { return m_requests; }
    int GetRequestCount() const { return m_requests.size(); }
    int GetConnectionCount() const { return m_connectionCount; }
    /// The number of open connections.
    int GetOpenCount() const { return m_incoming.size(); }
    /// Bytes sent to all clients, including heads.
    qint64 GetBytesSent() const { return m_bytesSent; }

Q_SIGNALS:
    void SigRequest();

private:
    void OnConnection();
    void OnReadyRead(QTcpSocket* socket);
    void Answer(QTcpSocket* socket, const ScriptedReply& reply);
    void Feed(QTcpSocket* socket);

    QTcpServer m_server;
    QElapsedTimer m_clock;
    QHash<QTcpSocket*, QByteArray> m_incoming; // received bytes of incomplete requests
    QVector<RecordedRequest> m_requests;
    QVector<ScriptedReply> m_replies;
    QVector<QPair<QPointer<QTcpSocket>, ScriptedReply>> m_held;
    ScriptedReply m_standing;
    qint64 m_bytesSent = 0;
    int m_connectionCount = 0;
};
