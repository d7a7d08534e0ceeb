#pragma once

#include "server/HttpServer.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

#include <functional>
#include <memory>
#include <optional>

namespace TLGateway {

// One connection: reads a request, has it answered, sends the reply, and starts over. Requests sent ahead
// wait in the buffer, so replies keep their order. Everything runs on the server's thread.
class HttpSession final : public std::enable_shared_from_this<HttpSession>
{
public:
    // `closed` is called once, when the connection has ended.
    HttpSession(boost::asio::ip::tcp::socket socket, const HttpServer::Options& options, HttpRouter& router,
                std::function<void(HttpSession*)> closed);
    HttpSession(const HttpSession&) = delete;
    HttpSession& operator=(const HttpSession&) = delete;

    void Start();

    // Closes an idle connection; a busy one closes after the reply.
    void Finish();

    // Closes at once.
    void Abort();

private:
    enum class State
    {
        Idle,      // no byte of a request has arrived
        Reading,   // part of a request has arrived
        Answering, // the request is being worked on or the reply is on its way
        Closed,
    };

    // The request that is being read or answered.
    struct Exchange
    {
        bool isHead = false;
        bool keepAlive = true;
        bool isUnreadable = false; // the rest of the input cannot be parsed
    };

    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;
    using Response = boost::beast::http::response<boost::beast::http::string_body>;

    void AwaitRequest(std::chrono::milliseconds limit);
    void ReadHeader();
    void OnHeader(boost::beast::error_code error);
    void ReadBody();
    void OnRequest(boost::beast::error_code error);
    void OnUnreadable(boost::beast::error_code error);
    void SendReply(const HttpReply& reply);
    void OnReplySent(boost::beast::error_code error);
    void Linger();
    void Discard();

    boost::beast::tcp_stream m_stream;
    const HttpServer::Options& m_options;
    HttpRouter& m_router;
    std::function<void(HttpSession*)> m_closed;
    boost::beast::flat_buffer m_buffer;
    std::optional<Parser> m_parser;
    std::shared_ptr<void> m_response; // alive while it is being sent
    State m_state = State::Idle;
    Exchange m_exchange;
    bool m_isFinishing = false;
    std::size_t m_discarded = 0;
};

} // namespace TLGateway
