#pragma once

#include "base/Clock.h"

#include <string>

namespace TLGateway {

// An access token as the store knows it. Only the hash of the token is kept.
struct TokenRecord
{
    std::string hash; // SHA-256 of the token's text, 32 bytes
    std::string pin;
    std::string belongType;
    std::string deviceId;
    UnixTime expiresAt = 0;
};

} // namespace TLGateway
