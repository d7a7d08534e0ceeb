#pragma once

#include <cstdint>
#include <functional>

namespace TLGateway {

// Seconds since 1970-01-01 00:00:00 UTC.
using UnixTime = std::int64_t;

// Where the time comes from. Called on any thread.
using Clock = std::function<UnixTime()>;

[[nodiscard]] UnixTime SystemTime();

} // namespace TLGateway
