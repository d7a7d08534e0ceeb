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

/// One call on its way: its attempts, the pauses between them and the time limit over all. Fills the
/// response; what becomes of the outcome is the manager's business. Deleting it abandons the call.
class HttpCall final : public QObject
{
    Q_OBJECT

public:
    /// `timeout` [ms] and `attempts` are taken as they are. `network` must outlive the call.
    HttpCall(QNetworkAccessManager& network, QSharedPointer<IHttpRequest> request,
             QSharedPointer<IHttpResponse> response, int timeout, int attempts);
    ~HttpCall() override;

    void Start();

    QSharedPointer<IHttpRequest> GetRequest() const { return m_request; }
    QSharedPointer<IHttpResponse> GetResponse() const { return m_response; }
    int GetAttempts() const noexcept { return m_attempt; }
    /// Since `Start` [ms].
    qint64 GetElapsed() const { return m_elapsed.elapsed(); }

Q_SIGNALS:
    /// Once, from the event loop: the response holds the outcome. The call may be deleted now.
    void SigDone();

private:
    void Attempt();
    void OnReadyRead();
    void OnFinished();
    void OnDeadline();
    /// The attempt is over: another one, or the end.
    void AttemptOver();
    void Conclude();
    /// Lets go of the transfer without hearing of it again.
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
