#include "support/LogCapture.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/base_sink.h>

#include <mutex>

namespace TLGateway {

class LogCapture::Sink final : public spdlog::sinks::base_sink<std::mutex>
{
public:
    [[nodiscard]] std::string Text()
    {
        const std::lock_guard lock(mutex_);
        return m_text;
    }

protected:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        m_text.append(message.payload.data(), message.payload.size());
        m_text += '\n';
    }
    void flush_() override {}

private:
    std::string m_text;
};

LogCapture::LogCapture()
    : m_sink(std::make_shared<Sink>()), m_logger(std::make_shared<spdlog::logger>("test", m_sink))
{
    m_logger->set_level(spdlog::level::debug);
}

std::string LogCapture::Text() const
{
    return m_sink->Text();
}

} // namespace TLGateway
