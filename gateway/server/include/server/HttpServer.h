#pragma once

#include "server/HttpRouter.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// Listens, reads requests, sends replies. One thread does all of it (the one in Run); what takes longer runs
// elsewhere behind the router.
class HttpServer final
{
public:
    struct Options
    {
        std::string address = "127.0.0.1";
        std::uint16_t port = 0; // 0: a free one
        std::size_t maxConnections = 1024;
        std::size_t maxBodySize = 262144;              // [bytes]
        std::size_t maxHeaderSize = 16384;             // [bytes]
        std::chrono::milliseconds requestLimit{10000}; // to send a whole request
        std::chrono::milliseconds idleLimit{60000};    // between two requests
        std::chrono::milliseconds replyLimit{30000};   // to take a whole reply
        std::chrono::milliseconds stopLimit{10000};    // for what is in flight at the stop
    };

    // Listens at once: Port is valid and connections are queued by the system. Throws std::runtime_error when
    // the address cannot be used.
    HttpServer(Options options, HttpRouter& router, std::shared_ptr<spdlog::logger> logger);
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer();

    [[nodiscard]] std::uint16_t Port() const noexcept;

    // Serves until stopped. With stopOnSignals, SIGINT and SIGTERM stop it as Stop does, and a second signal
    // at once. Returns when every connection is closed.
    void Run(bool stopOnSignals);

    // Any thread. Accepts no more, closes idle connections and finishes those that are in a request, within
    // the stop limit.
    void Stop();

private:
    class Implementation;
    const std::unique_ptr<Implementation> m_implementation;
};

} // namespace TLGateway
