#pragma once

#include "envelope/Refusal.h"

#include <boost/json/value.hpp>

#include <string>

namespace TLGateway {

// The reply's JSON for a success.
[[nodiscard]] std::string SuccessReply(const std::string& requestId, const boost::json::value& data);

// The reply's JSON for a refusal; "data" is null.
[[nodiscard]] std::string RefusalReply(const std::string& requestId, const Refusal& refusal);

// A new request id: 32 random hexadecimal digits.
[[nodiscard]] std::string NewRequestId();

} // namespace TLGateway
