#pragma once

#include "demo/DemoPages.h"
#include "server/HttpServer.h"
#include "support/TestGateway.h"

#include <memory>
#include <thread>

namespace TLGateway {

// The server in front of a test gateway, on a free port of the loopback, in a thread of its own.
class RunningServer final
{
public:
    explicit RunningServer(HttpServer::Options options = {}, std::size_t workerQueueLimit = 64)
        : m_workers(2, workerQueueLimit)
        , m_router(gateway.Service(), m_workers, &m_pages)
        , m_server(std::move(options), m_router, gateway.Capture().Logger())
        , m_thread([this] { m_server.Run(false); })
    {}

    RunningServer(const RunningServer&) = delete;
    RunningServer& operator=(const RunningServer&) = delete;

    ~RunningServer()
    {
        m_server.Stop();
        Join();
        m_workers.Close();
    }

    [[nodiscard]] std::uint16_t Port() const noexcept { return m_server.Port(); }
    void Stop() { m_server.Stop(); }
    // Waits for the server to end after Stop.
    void Join()
    {
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    TestGateway gateway;

private:
    DemoPages m_pages;
    WorkerPool m_workers;
    HttpRouter m_router;
    HttpServer m_server;
    std::thread m_thread;
};

} // namespace TLGateway
