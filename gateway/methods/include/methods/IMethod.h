#pragma once

#include "methods/MethodCall.h"

#include <string_view>

namespace TLGateway {

// One method of the gateway.
class IMethod
{
public:
    IMethod() = default;
    IMethod(const IMethod&) = delete;
    IMethod& operator=(const IMethod&) = delete;
    virtual ~IMethod() = default;

    // The name in the request's parameter "method".
    [[nodiscard]] virtual std::string_view Name() const noexcept = 0;

    // When true, Execute is called only with a valid access token.
    [[nodiscard]] virtual bool NeedsToken() const noexcept { return true; }

    // Called on a worker thread, several calls at once. Answers the call, now or later on another thread, or
    // throws Refused, InvalidInput or StoreError.
    virtual void Execute(const MethodCallPtr& call) = 0;
};

} // namespace TLGateway
