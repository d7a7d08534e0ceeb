#pragma once

#include <boost/json/value.hpp>

#include <cstddef>
#include <string_view>

namespace TLGateway {

// How deep arrays and objects may nest; the reader stops there, however long the text is.
constexpr std::size_t MaxJsonDepth = 32;

// Reads one JSON value from outside. Throws InvalidInput when the text is not JSON (the message gives
// the byte position) or is nested too deeply.
[[nodiscard]] boost::json::value ParseBusinessJson(std::string_view text);

} // namespace TLGateway
