#pragma once

#include "base/Clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace TLGateway {

// Reads "yyyy-MM-dd hh:mm:ss" in UTC, exactly that form with every field in its range; else nothing.
[[nodiscard]] std::optional<UnixTime> ParseTimeStamp(std::string_view text) noexcept;

// Writes the same form. Years outside 0 to 9999 are clamped to the nearest that the form can hold.
[[nodiscard]] std::string FormatTimeStamp(UnixTime time);

} // namespace TLGateway
