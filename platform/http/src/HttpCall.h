#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QTimer>

class IHttpRequest;
class IHttpResponse;
class QNetworkAccessManager;
class QNetworkReply;

/// One call in flight: its attempts, the pauses between them and the time limit over all. Fills the response
/// and leaves the rest to the manager. Deleting it abandons the call.
class HttpCall final : public QObject
{
    Q_OBJECT

public:
    /// Takes `timeout` [ms] and `attempts` as they are. `network` must outlive the call.
    HttpCall(QNetworkAccessManager& network, QSharedPointer<IHttpRequest> request,
             QSharedPointer<IHttpResponse> response, int timeout, int attempts);
    ~HttpCall() override;

    void Start();

    QSharedPointer<IHttpRequest> GetRequest() const { return m_request; }
    QSharedPointer<IHttpResponse> GetResponse() const { return m_response; }
    int GetAttempts() const noexcept { return m_attempt; }
    /// Time since `Start` [ms].
    qint64 GetElapsed() const { return m_elapsed.elapsed(); }

Q_SIGNALS:
    /// Emitted once, from the event loop, when the response holds the outcome. The receiver may delete the
    /// call.
    void SigDone();

private:
    void Attempt();
    void OnReadyRead();
    void OnFinished();
    void OnDeadline();
    /// Begins another attempt after a pause, or ends the call.
    void AttemptOver();
    void Conclude();
    /// Drops the transfer without hearing of it again.
    void DropReply();

    QNetworkAccessManager& m_network;
    QSharedPointer<IHttpRequest> m_request;
    QSharedPointer<IHttpResponse> m_response;
    QNetworkReply* m_reply = nullptr; // a child of m_network
    QByteArray m_body;
    QTimer m_deadline;
    QTimer m_pause;
    QElapsedTimer m_elapsed;
    int m_attempts;
    int m_attempt = 0;
};
