#pragma once

#include <map>
#include <string>
#include <string_view>

namespace TLGateway {

// The parameters of a request, decoded, sorted by name in byte order.
using FormParameters = std::map<std::string, std::string, std::less<>>;

// Reads an application/x-www-form-urlencoded body. Throws Refused (1001) naming the parameter that has a
// broken percent escape, is not UTF-8, or occurs twice.
[[nodiscard]] FormParameters ParseForm(std::string_view body);

} // namespace TLGateway
