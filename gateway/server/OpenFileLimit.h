#pragma once

#include <cstddef>

namespace TLGateway {

// Asks the system for enough open files for that many connections, where it has such a limit.
void RaiseOpenFileLimit(std::size_t connections) noexcept;

} // namespace TLGateway
