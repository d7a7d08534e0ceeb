#pragma once

#include "base/Clock.h"
#include "envelope/Refusal.h"
#include "records/TokenRecord.h"
#include "store/WriteFailure.h"

#include <boost/json/value.hpp>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// One request on its way through the gateway. It is answered exactly once, on any thread; a call that is
// dropped without an answer answers with 5003 by itself. Every refusal is logged with the request id and pin.
class MethodCall final
{
public:
    using Answer = std::function<void(ErrorCode code, std::string replyJson)>;

    MethodCall(std::string requestId, UnixTime now, Answer answer, std::shared_ptr<spdlog::logger> logger);
    MethodCall(const MethodCall&) = delete;
    MethodCall& operator=(const MethodCall&) = delete;
    ~MethodCall();

    [[nodiscard]] UnixTime Now() const noexcept { return m_now; }
    [[nodiscard]] const boost::json::value& Business() const noexcept { return m_business; }
    // The access token with which the method was called. Only for methods that need one.
    [[nodiscard]] const TokenRecord& Token() const noexcept { return *m_token; }

    void SetMethod(std::string method) { m_method = std::move(method); }
    void SetBusiness(boost::json::value business) { m_business = std::move(business); }
    void SetToken(TokenRecord token);
    // Who is asking, for the log.
    void SetPin(std::string pin) { m_pin = std::move(pin); }

    void Succeed(const boost::json::value& data);
    void Refuse(const Refusal& refusal);
    // Answers for a finished write: with `data`, or with the refusal that its failure means.
    void Finish(const std::optional<WriteFailure>& failure, const boost::json::value& data);

    // Runs a step of the method; what the step throws becomes the answer.
    void Run(const std::function<void()>& step) noexcept;

private:
    const std::string m_requestId;
    const UnixTime m_now;
    Answer m_answer; // empty once answered
    const std::shared_ptr<spdlog::logger> m_logger;
    std::string m_method;
    std::string m_pin;
    boost::json::value m_business;
    std::optional<TokenRecord> m_token;
};

using MethodCallPtr = std::shared_ptr<MethodCall>;

} // namespace TLGateway
