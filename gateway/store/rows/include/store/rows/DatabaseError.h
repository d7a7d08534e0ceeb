#pragma once

#include <stdexcept>

namespace TLGateway {

// A call of a database failed. Each engine derives its own error.
class DatabaseError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace TLGateway
