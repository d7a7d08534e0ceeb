#pragma once

#include "base/Clock.h"
#include "envelope/AppKeyRing.h"
#include "methods/MethodCall.h"
#include "methods/MethodRegistry.h"
#include "store/IStore.h"

#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// From the body of a request to the JSON of its reply: does the protocol's checks in their order and hands
// the call to its method. Knows nothing of sockets.
class GatewayService final
{
public:
    // All references must outlive the service.
    GatewayService(const AppKeyRing& keys, const MethodRegistry& methods, IStore& store, Clock clock,
                   std::shared_ptr<spdlog::logger> logger);

    // Any thread; may block on reads of the store. `answer` is called exactly once, on any thread.
    void Handle(const std::string& body, MethodCall::Answer answer);

    // Answers without looking at a body: for requests that are refused before they reach a method.
    void Refuse(const Refusal& refusal, MethodCall::Answer answer);

private:
    [[nodiscard]] MethodCallPtr NewCall(MethodCall::Answer answer) const;
    void Dispatch(const MethodCallPtr& call, const std::string& body);
    [[nodiscard]] TokenRecord CheckToken(const std::string& accessToken, const MethodCallPtr& call) const;

    const AppKeyRing& m_keys;
    const MethodRegistry& m_methods;
    IStore& m_store;
    const Clock m_clock;
    const std::shared_ptr<spdlog::logger> m_logger;
};

} // namespace TLGateway
