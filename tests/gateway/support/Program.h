#pragma once

#include <string>
#include <vector>

namespace TLGateway {

// What a run of the built program gave.
struct ProgramResult
{
    int exitCode = -1;
    std::string out;
    std::string err;
};

// Runs the built tl-gateway to its end.
ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input = {});

} // namespace TLGateway
