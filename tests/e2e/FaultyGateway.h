#pragma once

#include <QtCore/QHash>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QTcpServer>

class QTcpSocket;

/// Stands before the real gateway and passes calls on, but for those methods that a test wants to go
/// wrong. Its address stays the same over its life.
class FaultyGateway final : public QObject
{
    Q_OBJECT

public:
    enum class Fault
    {
        None,    ///< pass the call on
        Close,   ///< close the connection without an answer
        Garbage, ///< answer with bytes that are no JSON
        Html,    ///< answer as a proxy would, with an error page
        Huge,    ///< answer with 5 MB
        Silence, ///< never answer
        Answer   ///< answer with the bytes of `SetAnswer`
    };

    explicit FaultyGateway(const QUrl& gateway);
    /// Drops its connections while the members that their signals use still stand.
    ~FaultyGateway() override;

    QString GetAddress() const;
    /// From the next call of `method` on; an empty method means all calls.
    void SetFault(const QString& method, Fault fault);
    void SetAnswer(const QByteArray& answer) { m_answer = answer; }
    /// No longer takes connections, as when the gateway's machine is down; and takes them again.
    void Shut();
    [[nodiscard]] bool Reopen();
    /// How often a method was called, faults included.
    int GetCallCount(const QString& method) const { return m_calls.value(method); }
    /// What the gateway itself last answered to a method.
    QByteArray GetLastReply(const QString& method) const { return m_replies.value(method); }

private:
    void TakeConnection();
    void TakeBytes(QTcpSocket* socket);
    void Handle(QTcpSocket* socket, const QByteArray& body);
    void PassOn(QTcpSocket* socket, const QString& method, const QByteArray& body);
    static void Reply(QTcpSocket* socket, int status, const QByteArray& type, const QByteArray& body);

    QUrl m_gateway;
    QTcpServer m_server;
    quint16 m_port = 0;
    QNetworkAccessManager m_network;
    QHash<QTcpSocket*, QByteArray> m_received;
    QHash<QString, Fault> m_faults;
    QHash<QString, int> m_calls;
    QHash<QString, QByteArray> m_replies;
    QByteArray m_answer;
};
