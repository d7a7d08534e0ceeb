#pragma once

#include <iosfwd>

namespace TLGateway {

// The whole program: reads the command line, runs the command, and returns the exit code. Errors and the log
// go to standard error.
int RunCommandLine(int argc, const char* const* argv, std::istream& in, std::ostream& out);

} // namespace TLGateway
