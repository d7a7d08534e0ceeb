#pragma once

#include "envelope/Refusal.h"

#include <boost/json/value.hpp>

#include <string>

namespace TLGateway {

// The reply's JSON for a success.
[[nodiscard]] std::string SuccessReply(const std::string& requestId, const boost::json::value& data);

// The reply's JSON for a refusal; "data" is null.
[[nodiscard]] std::string RefusalReply(const std::string& requestId, const Refusal& refusal);

// A fresh request id: 32 hexadecimal digits at random.
[[nodiscard]] std::string NewRequestId();

} // namespace TLGateway
