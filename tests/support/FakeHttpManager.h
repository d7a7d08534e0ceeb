#pragma once

#include "http/IHttpManager.h"

#include <QtCore/QByteArray>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <functional>
#include <vector>

/// Sends nothing: holds every call until the test says how it ends. Calls are numbered from 0 in the order of
/// sending. Throws std::logic_error for a call that does not exist or has already ended.
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

    /// Ends the call with a successful reply of the gateway; `data` is JSON.
    void Answer(int index, const QByteArray& data);
    /// Ends the call with these bytes as the whole reply.
    void AnswerRaw(int index, const QByteArray& reply);
    /// Ends the call with a network error.
    void Fail(int index, int error = 1, const QString& description = QStringLiteral("connection refused"));
    /// Drops all open calls without calling back.
    void DropCalls();

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

private:
    /// Removes the call from the open ones.
    Call Take(int index);

    std::vector<Call> m_calls; // one that has ended is empty
};
