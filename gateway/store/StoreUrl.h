#pragma once

#include <string>
#include <string_view>

namespace TLGateway {

// The file that a database URL "sqlite:FILE" names [UTF-8]. Throws std::invalid_argument with a text for the
// operator when the URL has another form.
[[nodiscard]] std::string SqliteFileOfUrl(std::string_view url);

} // namespace TLGateway
