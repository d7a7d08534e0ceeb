#pragma once

#include "envelope/ErrorCode.h"

#include <string>

namespace TLGateway {

// Why a request is refused. The message is English, goes to the client and into the log, and never holds a
// confidential value of the client (password, token, secret, sign).
struct Refusal
{
    ErrorCode code = ErrorCode::Internal;
    std::string message;
};

} // namespace TLGateway
