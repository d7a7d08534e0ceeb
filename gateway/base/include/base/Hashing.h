#pragma once

#include <string>
#include <string_view>

namespace TLGateway {

// SHA-256 as 32 raw bytes. Throws std::runtime_error when the cryptographic library fails.
[[nodiscard]] std::string Sha256(std::string_view data);

// HMAC-SHA256 as 32 raw bytes. Throws like Sha256.
[[nodiscard]] std::string HmacSha256(std::string_view key, std::string_view data);

// Compares in a time that depends on the lengths alone.
[[nodiscard]] bool EqualInConstantTime(std::string_view a, std::string_view b) noexcept;

} // namespace TLGateway
