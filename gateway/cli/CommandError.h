#pragma once

#include <stdexcept>

namespace TLGateway {

// A command cannot do what was asked. The text is for the operator; the program ends with exit code 1.
class CommandError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace TLGateway
