#pragma once

#include <string>

namespace TLGateway {

// A user as the store knows it.
struct UserRecord
{
    std::string pin;
    std::string belongType;
    std::string passwordHash; // encoded Argon2id
};

} // namespace TLGateway
