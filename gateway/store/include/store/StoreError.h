#pragma once

#include <stdexcept>

namespace TLGateway {

// The store could not do what was asked. The text says what failed, in which file, and what to do; it is for
// the operator's log, never for a client.
class StoreError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace TLGateway
