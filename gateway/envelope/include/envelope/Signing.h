#pragma once

#include "envelope/FormParameters.h"

#include <string>
#include <string_view>

namespace TLGateway {

// The bytes that a request's sign covers: every parameter but "sign", by name, as name, "=", value, "\n".
[[nodiscard]] std::string BytesToSign(const FormParameters& parameters);

// The sign that the parameters should carry: 64 lower-case hexadecimal digits.
[[nodiscard]] std::string Sign(const FormParameters& parameters, std::string_view secret);

} // namespace TLGateway
