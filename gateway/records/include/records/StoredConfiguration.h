#pragma once

#include "base/Clock.h"
#include "records/AutoRunConfiguration.h"

#include <cstdint>
#include <string>

namespace TLGateway {

// One revision of a user's configuration.
struct StoredConfiguration
{
    AutoRunConfiguration configuration;
    std::int64_t revision = 0; // 0: the user has none yet
    UnixTime writtenAt = 0;
    std::string author; // "user" or "operator"
};

} // namespace TLGateway
