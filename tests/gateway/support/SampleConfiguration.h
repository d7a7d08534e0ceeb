#pragma once

#include "records/AutoRunConfiguration.h"

#include <string>

namespace TLGateway {

[[nodiscard]] AutoRunEntry SystemEntry(const std::string& itemId, bool checked = true, bool active = false);
[[nodiscard]] AutoRunEntry CustomEntry(const std::string& itemId, const std::string& name = "Page");
[[nodiscard]] AutoRunEntry AppEntry(const std::string& itemId, const std::string& code = "orders");

// Two system entries (s1, s2), two custom ones (c1, c2) and one app (a1).
[[nodiscard]] AutoRunConfiguration SampleConfiguration();

} // namespace TLGateway
