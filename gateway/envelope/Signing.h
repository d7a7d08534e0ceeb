#pragma once

#include "envelope/FormParameters.h"

#include <string>
#include <string_view>

namespace TLGateway {

// HMAC-SHA256 as 32 raw bytes. Throws std::runtime_error when the cryptographic library fails.
[[nodiscard]] std::string HmacSha256(std::string_view key, std::string_view data);

// SHA-256 as 32 raw bytes.
[[nodiscard]] std::string Sha256(std::string_view data);

// The bytes that a request's sign covers: every parameter but "sign", by name, as name, "=", value, "\n".
[[nodiscard]] std::string BytesToSign(const FormParameters& parameters);

// The sign that the parameters should carry: 64 lower-case hexadecimal digits.
[[nodiscard]] std::string Sign(const FormParameters& parameters, std::string_view secret);

// Compares in a time that depends on the lengths alone.
[[nodiscard]] bool EqualInConstantTime(std::string_view a, std::string_view b) noexcept;

// Bytes from the operating system's cryptographic random source. Throws std::runtime_error when it fails.
[[nodiscard]] std::string RandomBytes(std::size_t count);

} // namespace TLGateway
