#include "support/Program.h"

#include "support/TemporaryFolder.h"

#include <boost/process.hpp>

namespace TLGateway {

namespace bp = boost::process;

// Files instead of pipes: neither side can block the other.
ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input)
{
    const TemporaryFolder folder;
    const std::string in = folder.Write("in", input);
    const std::string out = folder.Write("out", {});
    const std::string err = folder.Write("err", {});
    ProgramResult result;
    result.exitCode = bp::system(bp::exe(TL_GATEWAY_PROGRAM), bp::args(arguments),
                                 bp::std_in<in, bp::std_out> out, bp::std_err > err);
    result.out = ReadBytes(out);
    result.err = ReadBytes(err);
    return result;
}

} // namespace TLGateway
