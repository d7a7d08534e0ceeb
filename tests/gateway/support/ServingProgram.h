#pragma once

#include "support/TemporaryFolder.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TLGateway {

// The built tl-gateway, serving a database on a free port of the loopback. Killed at the end when it still
// runs.
class ServingProgram final
{
public:
    // Returns when the program says that it listens. Throws when it ends before.
    explicit ServingProgram(const std::string& databaseUrl, const std::vector<std::string>& more = {});
    ServingProgram(const ServingProgram&) = delete;
    ServingProgram& operator=(const ServingProgram&) = delete;
    ~ServingProgram();

    [[nodiscard]] std::uint16_t Port() const noexcept { return m_port; }
    [[nodiscard]] std::string ReadyLine() const { return m_readyLine; }

    // Asks it to end, as an operator does.
    void Terminate();
    // Ends it at once, with nothing finished.
    void Kill();
    // Waits for the end and gives the exit code.
    int Wait();

    // All of its standard output behind the ready line; only after Wait.
    [[nodiscard]] std::string RestOfOutput();
    [[nodiscard]] std::string Log() const;

private:
    struct Process;
    TemporaryFolder m_folder;
    std::unique_ptr<Process> m_process;
    std::string m_readyLine;
    std::uint16_t m_port = 0;
};

} // namespace TLGateway
