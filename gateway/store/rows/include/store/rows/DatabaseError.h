#pragma once

#include <stdexcept>

namespace TLGateway {

// A call of a database failed. Each engine has a class of its own below this one.
class DatabaseError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace TLGateway
