#include "methods/MethodCall.h"

#include "base/Text.h"
#include "envelope/Refused.h"
#include "envelope/ReplyEnvelope.h"
#include "methods/ToRefusal.h"

#include <spdlog/logger.h>

#include <utility>

namespace TLGateway {

MethodCall::MethodCall(std::string requestId, UnixTime now, Answer answer,
                       std::shared_ptr<spdlog::logger> logger)
    : m_requestId(std::move(requestId)), m_now(now), m_answer(std::move(answer)), m_logger(std::move(logger))
{}

MethodCall::~MethodCall()
{
    if (m_answer) {
        Refuse({ErrorCode::Internal, "internal error"});
    }
}

void MethodCall::SetToken(TokenRecord token)
{
    m_pin = token.pin;
    m_token = std::move(token);
}

void MethodCall::Succeed(const boost::json::value& data)
{
    if (const Answer answer = std::exchange(m_answer, nullptr)) {
        m_logger->debug("done request={} method={} pin={}", m_requestId, Quoted(m_method), Quoted(m_pin));
        answer(ErrorCode::Success, SuccessReply(m_requestId, data));
    }
}

void MethodCall::Refuse(const Refusal& refusal)
{
    if (const Answer answer = std::exchange(m_answer, nullptr)) {
        m_logger->warn("refused request={} method={} pin={} code={} reason={}", m_requestId, Quoted(m_method),
                       Quoted(m_pin), static_cast<int>(refusal.code), refusal.message);
        answer(refusal.code, RefusalReply(m_requestId, refusal));
    }
}

void MethodCall::Finish(const std::optional<WriteFailure>& failure, const boost::json::value& data)
{
    if (failure) {
        Refuse(ToRefusal(*failure));
    } else {
        Succeed(data);
    }
}

void MethodCall::Run(const std::function<void()>& step) noexcept
{
    try {
        step();
    } catch (const Refused& refused) {
        Refuse(refused.Reason());
    } catch (const InvalidInput& invalid) {
        Refuse(ToRefusal(invalid));
    } catch (const StoreError& error) {
        m_logger->error("request={} {}", m_requestId, error.what());
        Refuse(ToRefusal(error));
    } catch (const std::exception& error) {
        m_logger->error("request={} internal error: {}", m_requestId, error.what());
        Refuse({ErrorCode::Internal, "internal error"});
    }
}

} // namespace TLGateway
