#include "FakeHttpManager.h"

#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <stdexcept>
#include <string>
#include <utility>

FakeHttpManager::FakeHttpManager() = default;

FakeHttpManager::~FakeHttpManager() = default;

int FakeHttpManager::GetCallCount() const noexcept
{
    return static_cast<int>(m_calls.size());
}

const FakeHttpManager::Call& FakeHttpManager::GetCall(int index) const
{
    if (index < 0 || index >= GetCallCount() || !m_calls[static_cast<size_t>(index)].finished) {
        throw std::logic_error("there is no open call " + std::to_string(index));
    }
    return m_calls[static_cast<size_t>(index)];
}

void FakeHttpManager::Answer(int index, const QByteArray& data)
{
    AnswerRaw(index, R"({"code":"0","message":"","requestId":"r1","data":)" + data + '}');
}

void FakeHttpManager::AnswerRaw(int index, const QByteArray& reply)
{
    const Call call = Take(index);
    call.response->SetData(reply);
    call.finished();
}

void FakeHttpManager::Fail(int index, int error, const QString& description)
{
    const Call call = Take(index);
    call.response->SetNetworkError(error, description);
    call.finished();
}

void FakeHttpManager::DropCalls()
{
    for (Call& call : m_calls) {
        call = Call();
    }
}

void FakeHttpManager::Send(const QSharedPointer<IHttpRequest>& request,
                           const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                           int timeout, int attempts)
{
    m_calls.push_back({request, response, std::move(finished), timeout, attempts});
}

FakeHttpManager::Call FakeHttpManager::Take(int index)
{
    Call call = GetCall(index);
    m_calls[static_cast<size_t>(index)] = Call();
    return call;
}
