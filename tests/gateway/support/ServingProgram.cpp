#include "support/ServingProgram.h"

#include <boost/process.hpp>

#include <csignal>
#include <iterator>
#include <stdexcept>

namespace TLGateway {

namespace bp = boost::process;

struct ServingProgram::Process
{
    bp::ipstream out;
    bp::child child;
};

ServingProgram::ServingProgram(const std::string& databaseUrl, const std::vector<std::string>& more)
    : m_process(std::make_unique<Process>())
{
    std::vector<std::string> arguments = {"serve", "--database", databaseUrl, "--listen", "127.0.0.1:0"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    m_process->child =
        bp::child(bp::exe(TL_GATEWAY_PROGRAM), bp::args(arguments),
                  bp::std_in<bp::null, bp::std_out> m_process->out, bp::std_err > m_folder.File("log"));
    const std::string start = "tl-gateway listening on http://127.0.0.1:";
    if (!std::getline(m_process->out, m_readyLine) || m_readyLine.rfind(start, 0) != 0) {
        throw std::runtime_error("tl-gateway did not start: " + m_readyLine + Log());
    }
    m_port = static_cast<std::uint16_t>(std::stoi(m_readyLine.substr(start.size())));
}

ServingProgram::~ServingProgram()
{
    std::error_code ignored;
    if (m_process->child.running(ignored)) {
        m_process->child.terminate(ignored);
    }
}

void ServingProgram::Terminate()
{
#ifdef _WIN32
    throw std::runtime_error("there is no SIGTERM on Windows");
#else
    ::kill(m_process->child.id(), SIGTERM);
#endif
}

void ServingProgram::Kill()
{
    std::error_code ignored;
    m_process->child.terminate(ignored);
}

int ServingProgram::Wait()
{
    m_process->child.wait();
    return m_process->child.exit_code();
}

std::string ServingProgram::RestOfOutput()
{
    return {std::istreambuf_iterator<char>(m_process->out), std::istreambuf_iterator<char>()};
}

std::string ServingProgram::Log() const
{
    return ReadBytes(m_folder.File("log"));
}

} // namespace TLGateway
