#pragma once

#include <cstddef>
#include <string>

namespace TLGateway {

// Bytes from the operating system's cryptographic random source. Throws std::runtime_error when it fails.
[[nodiscard]] std::string RandomBytes(std::size_t count);

} // namespace TLGateway
