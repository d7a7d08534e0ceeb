#pragma once

#include <boost/json/value.hpp>

#include <string>

namespace TLGateway {

// JSON for a person to read: two spaces of indentation, one member or element per line, a line feed at the
// end.
[[nodiscard]] std::string PrettyJson(const boost::json::value& value);

} // namespace TLGateway
