#pragma once

#include "http/IHttpManager.h"

#include <QtCore/QByteArray>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <functional>
#include <vector>

/// Sends nothing: keeps every call until the test says how it ends. Calls are counted from 0 in the order
/// of sending. Asking for a call that does not exist, or ending one twice, throws std::logic_error.
class FakeHttpManager final : public IHttpManager
{
public:
    struct Call
    {
        QSharedPointer<IHttpRequest> request;
        QSharedPointer<IHttpResponse> response;
        std::function<void()> finished;
        int timeout = 0; ///< [ms]
        int attempts = 0;
    };

    FakeHttpManager();
    ~FakeHttpManager() override;

    int GetCallCount() const noexcept;
    /// A call that has not ended yet.
    const Call& GetCall(int index) const;

    /// Ends the call with a reply of the gateway: code "0" and `data`, given as JSON.
    void Answer(int index, const QByteArray& data);
    /// Ends the call with these bytes as the whole reply.
    void AnswerRaw(int index, const QByteArray& reply);
    /// Ends the call with an error of the network.
    void Fail(int index, int error = 1, const QString& description = QStringLiteral("connection refused"));
    /// Drops all calls that have not ended, without running their completions.
    void DropCalls();

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

private:
    /// Takes the call off the list of those that have not ended.
    Call Take(int index);

    std::vector<Call> m_calls; // one that has ended is empty
};
