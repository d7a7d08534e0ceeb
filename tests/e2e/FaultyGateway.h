#pragma once

#include <QtCore/QHash>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QTcpServer>

class QTcpSocket;

/// Stands in front of the real gateway and passes calls on, except for the methods that a test makes fail.
/// Its address never changes.
class FaultyGateway final : public QObject
{
    Q_OBJECT

public:
    enum class Fault
    {
        None,    ///< pass the call on
        Close,   ///< close the connection without an answer
        Garbage, ///< answer with bytes that are not JSON
        Html,    ///< answer as a proxy would, with an error page
        Huge,    ///< answer with 5 MB
        Silence, ///< never answer
        Answer   ///< answer with the bytes of `SetAnswer`
    };

    explicit FaultyGateway(const QUrl& gateway);
    /// Drops its connections before the members that their signals use.
    ~FaultyGateway() override;

    QString GetAddress() const;
    /// Applies from the next call of `method`; an empty method stands for all.
    void SetFault(const QString& method, Fault fault);
    void SetAnswer(const QByteArray& answer) { m_answer = answer; }
    /// Refuses connections, as if the gateway's machine were down, until `Reopen`.
    void Shut();
    [[nodiscard]] bool Reopen();
    /// How often a method was called, including faults.
    int GetCallCount(const QString& method) const { return m_calls.value(method); }
    /// The last reply of the real gateway to a method.
    QByteArray GetLastReply(const QString& method) const { return m_replies.value(method); }

private:
    void HandleConnection();
    void HandleBytes(QTcpSocket* socket);
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
