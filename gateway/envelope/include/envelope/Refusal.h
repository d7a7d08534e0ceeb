#pragma once

#include "envelope/ErrorCode.h"

#include <string>

namespace TLGateway {

// Why a request is not done. The message is English, goes to the client and into the log, and never holds
// a value that the client sent in confidence (password, token, secret, sign).
struct Refusal
{
    ErrorCode code = ErrorCode::Internal;
    std::string message;
};

} // namespace TLGateway
