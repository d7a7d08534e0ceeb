#pragma once

#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// A logger whose lines a test can read.
class LogCapture final
{
public:
    LogCapture();

    [[nodiscard]] const std::shared_ptr<spdlog::logger>& Logger() const noexcept { return m_logger; }
    // Everything logged so far.
    [[nodiscard]] std::string Text() const;

private:
    class Sink;
    std::shared_ptr<Sink> m_sink;
    std::shared_ptr<spdlog::logger> m_logger;
};

} // namespace TLGateway
