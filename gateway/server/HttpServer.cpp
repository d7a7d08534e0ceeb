#include "server/HttpServer.h"

#include "HttpSession.h"
#include "OpenFileLimit.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>

#include <spdlog/logger.h>

#include <csignal>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace TLGateway {

namespace net = boost::asio;
using net::ip::tcp;

namespace {

// What a connection beyond the limit gets. It fits into the system's buffer, so it is sent without waiting.
constexpr std::string_view TooManyConnections =
    "HTTP/1.1 503 Service Unavailable\r\n"
    "Content-Type: application/json; charset=utf-8\r\n"
    "Connection: close\r\n"
    "Content-Length: 86\r\n"
    "\r\n"
    R"({"code":"5001","message":"too many connections; try again","requestId":"","data":null})";

constexpr std::chrono::milliseconds PauseAfterFailedAccept{100};

tcp::acceptor Listen(net::io_context& context, const std::string& host, std::uint16_t port)
{
    const std::string where = host + ":" + std::to_string(port);
    boost::system::error_code error;
    const auto address = net::ip::make_address(host, error);
    if (error) {
        throw std::runtime_error("cannot listen on " + where + ": not an IP address");
    }
    const tcp::endpoint endpoint(address, port);
    tcp::acceptor acceptor(context);
    acceptor.open(endpoint.protocol(), error);
#ifndef _WIN32
    // On Windows this option would let two programs share the port.
    if (!error) {
        acceptor.set_option(net::socket_base::reuse_address(true), error);
    }
#endif
    if (!error) {
        acceptor.bind(endpoint, error);
    }
    if (!error) {
        acceptor.listen(net::socket_base::max_listen_connections, error);
    }
    if (error) {
        throw std::runtime_error("cannot listen on " + where + ": " + error.message());
    }
    return acceptor;
}

} // namespace

class HttpServer::Implementation final
{
public:
    Implementation(Options options, HttpRouter& router, std::shared_ptr<spdlog::logger> logger)
        : m_options(std::move(options))
        , m_router(router)
        , m_logger(std::move(logger))
        , m_acceptor(Listen(m_context, m_options.address, m_options.port))
        , m_signals(m_context)
        , m_retry(m_context)
        , m_stopTimer(m_context)
        , m_work(m_context.get_executor())
        , m_port(m_acceptor.local_endpoint().port())
    {
        RaiseOpenFileLimit(m_options.maxConnections);
    }

    [[nodiscard]] std::uint16_t Port() const noexcept { return m_port; }

    void Run(bool stopOnSignals)
    {
        if (stopOnSignals) {
            m_signals.add(SIGINT);
            m_signals.add(SIGTERM);
            AwaitSignal();
        }
        Accept();
        m_context.run();
    }

    void Stop()
    {
        net::post(m_context, [this] { BeginStop(); });
    }

private:
    void AwaitSignal()
    {
        m_signals.async_wait([this](boost::system::error_code error, int signal) {
            if (error) {
                return;
            }
            if (m_isStopping) {
                m_logger->warn("signal {} again: closing {} connection(s) at once", signal,
                               m_sessions.size());
                ForEachSession(&HttpSession::Abort);
                EndWhenEmpty();
                return;
            }
            m_logger->info("signal {}: finishing what is in flight", signal);
            AwaitSignal();
            BeginStop();
        });
    }

    void Accept()
    {
        m_acceptor.async_accept([this](boost::system::error_code error, tcp::socket socket) {
            if (m_isStopping) {
                return;
            }
            if (error) {
                m_logger->error("accepting a connection failed: {}; trying again", error.message());
                m_retry.expires_after(PauseAfterFailedAccept);
                m_retry.async_wait([this](boost::system::error_code waitError) {
                    if (!waitError && !m_isStopping) {
                        Accept();
                    }
                });
                return;
            }
            if (m_sessions.size() >= m_options.maxConnections) {
                TurnAway(socket);
            } else {
                Serve(std::move(socket));
            }
            Accept();
        });
    }

    void TurnAway(tcp::socket& socket)
    {
        if (!std::exchange(m_isFull, true)) {
            m_logger->warn("{} connections are open, which is the limit; turning away further ones",
                           m_sessions.size());
        }
        boost::system::error_code ignored;
        socket.non_blocking(true, ignored);
        socket.write_some(net::buffer(TooManyConnections.data(), TooManyConnections.size()), ignored);
        socket.shutdown(tcp::socket::shutdown_send, ignored);
    }

    void Serve(tcp::socket socket)
    {
        auto session = std::make_shared<HttpSession>(std::move(socket), m_options, m_router,
                                                     [this](HttpSession* closed) { OnClosed(closed); });
        m_sessions.emplace(session.get(), session);
        session->Start();
    }

    void OnClosed(HttpSession* session)
    {
        m_sessions.erase(session);
        m_isFull = false;
        EndWhenEmpty();
    }

    void BeginStop()
    {
        if (std::exchange(m_isStopping, true)) {
            return;
        }
        boost::system::error_code ignored;
        m_acceptor.close(ignored);
        m_retry.cancel();
        m_stopTimer.expires_after(m_options.stopLimit);
        m_stopTimer.async_wait([this](boost::system::error_code error) {
            if (!error) {
                m_logger->warn("closing {} connection(s) that did not finish in time", m_sessions.size());
                ForEachSession(&HttpSession::Abort);
                EndWhenEmpty();
            }
        });
        ForEachSession(&HttpSession::Finish);
        EndWhenEmpty();
    }

    // Walks a copy, since a session that closes leaves the map.
    void ForEachSession(void (HttpSession::*act)())
    {
        const auto sessions = m_sessions;
        for (const auto& entry : sessions) {
            (entry.second.get()->*act)();
        }
    }

    void EndWhenEmpty()
    {
        if (m_isStopping && m_sessions.empty()) {
            m_stopTimer.cancel();
            m_signals.cancel();
            m_work.reset();
        }
    }

    const Options m_options;
    HttpRouter& m_router;
    const std::shared_ptr<spdlog::logger> m_logger;
    net::io_context m_context{1};
    tcp::acceptor m_acceptor;
    net::signal_set m_signals;
    net::steady_timer m_retry;
    net::steady_timer m_stopTimer;
    // Keeps Run going while a request is with a worker and nothing waits on a socket.
    net::executor_work_guard<net::io_context::executor_type> m_work;
    std::unordered_map<HttpSession*, std::shared_ptr<HttpSession>> m_sessions;
    const std::uint16_t m_port;
    bool m_isStopping = false;
    bool m_isFull = false;
};

HttpServer::HttpServer(Options options, HttpRouter& router, std::shared_ptr<spdlog::logger> logger)
    : m_implementation(std::make_unique<Implementation>(std::move(options), router, std::move(logger)))
{}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::Port() const noexcept
{
    return m_implementation->Port();
}

void HttpServer::Run(bool stopOnSignals)
{
    m_implementation->Run(stopOnSignals);
}

void HttpServer::Stop()
{
    m_implementation->Stop();
}

} // namespace TLGateway
