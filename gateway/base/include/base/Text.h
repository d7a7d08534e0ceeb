#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TLGateway {

// Well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
[[nodiscard]] bool IsValidUtf8(std::string_view text) noexcept;

// Number of code points of well-formed UTF-8.
[[nodiscard]] std::size_t CountCodePoints(std::string_view text) noexcept;

// Foreign text for a message or a log line: in double quotes, control characters and bytes that are not
// UTF-8 escaped, cut after 64 code points, so that it can neither break a line nor flood the log.
[[nodiscard]] std::string Quoted(std::string_view text);

// Lower-case hexadecimal digits of the bytes.
[[nodiscard]] std::string ToHex(std::string_view bytes);

// RFC 4648 base64url without padding.
[[nodiscard]] std::string ToBase64Url(std::string_view bytes);

} // namespace TLGateway
