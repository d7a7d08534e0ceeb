#pragma once

namespace TLGateway {

// A function switch that the operator has set.
struct FunctionSwitch
{
    int number = 0;
    bool valid = false;
    bool display = false;
};

} // namespace TLGateway
