#pragma once

#include "envelope/FormParameters.h"

#include <string>
#include <string_view>

namespace TLGateway {

[[nodiscard]] std::string PercentEncode(std::string_view text);
[[nodiscard]] std::string FormEncode(const FormParameters& parameters);

} // namespace TLGateway
