#include "HttpSession.h"

#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>

#include <string>
#include <utility>

#ifdef __linux__
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace TLGateway {

namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr std::size_t BufferLimit = 131072;
constexpr std::size_t ReadAtOnce = 8192;
// A client whose request was refused unread is still sending; closing at once would make its system discard
// the reply.
constexpr std::size_t DiscardLimit = 4194304;
constexpr std::chrono::seconds DiscardTime{2};
constexpr const char* ServerName = "tl-gateway";

// Many clients send the head and the body of a request separately, and their system holds the body back until
// the head is acknowledged, which this system delays by some 40 ms. This is a hint, and not available
// everywhere.
void AcknowledgeAtOnce([[maybe_unused]] boost::asio::ip::tcp::socket& socket)
{
#ifdef TCP_QUICKACK
    const int on = 1;
    static_cast<void>(::setsockopt(socket.native_handle(), IPPROTO_TCP, TCP_QUICKACK, &on, sizeof(on)));
#endif
}

template <typename Message>
void SetFields(Message& message, const HttpReply& reply, bool keepAlive)
{
    message.set(http::field::server, ServerName);
    message.set(http::field::content_type, reply.contentType);
    message.set(http::field::cache_control, "no-store");
    message.set("X-Content-Type-Options", "nosniff");
    if (!reply.allow.empty()) {
        message.set(http::field::allow, reply.allow);
    }
    message.keep_alive(keepAlive);
}

} // namespace

HttpSession::HttpSession(boost::asio::ip::tcp::socket socket, const HttpServer::Options& options,
                         HttpRouter& router, std::function<void(HttpSession*)> closed)
    : m_stream(std::move(socket))
    , m_options(options)
    , m_router(router)
    , m_closed(std::move(closed))
    , m_buffer(BufferLimit)
{
    beast::error_code ignored;
    m_stream.socket().set_option(boost::asio::ip::tcp::no_delay(true), ignored);
}

void HttpSession::Start()
{
    AwaitRequest(m_options.requestLimit);
}

void HttpSession::Finish()
{
    m_isFinishing = true;
    if (m_state == State::Idle) {
        Abort();
    }
}

void HttpSession::Abort()
{
    if (m_state == State::Closed) {
        return;
    }
    m_state = State::Closed;
    beast::error_code ignored;
    m_stream.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_both, ignored);
    m_stream.close();
    m_closed(this);
}

void HttpSession::AwaitRequest(std::chrono::milliseconds limit)
{
    m_state = State::Idle;
    if (m_isFinishing) {
        Abort();
        return;
    }
    if (m_buffer.size() > 0) {
        ReadHeader();
        return;
    }
    m_stream.expires_after(limit);
    m_stream.async_read_some(m_buffer.prepare(ReadAtOnce),
                             [self = shared_from_this()](beast::error_code error, std::size_t count) {
                                 if (error || self->m_state == State::Closed) {
                                     self->Abort();
                                     return;
                                 }
                                 self->m_buffer.commit(count);
                                 self->ReadHeader();
                             });
}

void HttpSession::ReadHeader()
{
    m_state = State::Reading;
    m_exchange = {};
    m_parser.emplace();
    m_parser->body_limit(m_options.maxBodySize);
    m_parser->header_limit(static_cast<std::uint32_t>(m_options.maxHeaderSize));
    // One limit for header and body together: a client cannot stretch it by sending single bytes.
    m_stream.expires_after(m_options.requestLimit);
    http::async_read_header(
        m_stream, m_buffer, *m_parser,
        [self = shared_from_this()](beast::error_code error, std::size_t) { self->OnHeader(error); });
}

void HttpSession::OnHeader(beast::error_code error)
{
    if (error) {
        OnUnreadable(error);
        return;
    }
    if (!beast::iequals(m_parser->get()[http::field::expect], "100-continue") || m_parser->is_done()) {
        ReadBody();
        return;
    }
    static constexpr std::string_view GoOn = "HTTP/1.1 100 Continue\r\n\r\n";
    boost::asio::async_write(m_stream, boost::asio::buffer(GoOn.data(), GoOn.size()),
                             [self = shared_from_this()](beast::error_code writeError, std::size_t) {
                                 if (writeError) {
                                     self->Abort();
                                 } else {
                                     self->ReadBody();
                                 }
                             });
}

void HttpSession::ReadBody()
{
    AcknowledgeAtOnce(m_stream.socket());
    http::async_read(
        m_stream, m_buffer, *m_parser,
        [self = shared_from_this()](beast::error_code error, std::size_t) { self->OnRequest(error); });
}

void HttpSession::OnRequest(beast::error_code error)
{
    if (error) {
        OnUnreadable(error);
        return;
    }
    if (m_state == State::Closed) {
        return;
    }
    m_state = State::Answering;
    m_stream.expires_never();
    auto request = m_parser->release();
    m_exchange.isHead = request.method() == http::verb::head;
    m_exchange.keepAlive = request.keep_alive();
    const std::string method(request.method_string());
    const std::string target(request.target());
    m_router.Route(method, target, std::move(request.body()), [self = shared_from_this()](HttpReply reply) {
        auto& stream = self->m_stream;
        boost::asio::post(stream.get_executor(),
                          [self, reply = std::move(reply)] { self->SendReply(reply); });
    });
}

void HttpSession::OnUnreadable(beast::error_code error)
{
    const bool isTooLarge = error == http::error::body_limit;
    const bool isBadHttp = error.category() == http::make_error_code(http::error::bad_method).category() &&
                           error != http::error::end_of_stream && error != http::error::partial_message;
    if (m_state == State::Closed || (!isTooLarge && !isBadHttp)) {
        Abort();
        return;
    }
    m_state = State::Answering;
    m_exchange.keepAlive = false;
    m_exchange.isUnreadable = true;
    Refusal refusal{ErrorCode::BadParameter, "the request is not valid HTTP: " + error.message()};
    if (isTooLarge) {
        refusal = {ErrorCode::BodyTooLarge,
                   "the body exceeds the limit of " + std::to_string(m_options.maxBodySize) + " bytes"};
    }
    m_router.Refuse(refusal, [self = shared_from_this()](HttpReply reply) {
        boost::asio::post(self->m_stream.get_executor(),
                          [self, reply = std::move(reply)] { self->SendReply(reply); });
    });
}

void HttpSession::SendReply(const HttpReply& reply)
{
    if (m_state == State::Closed) {
        return;
    }
    m_exchange.keepAlive = m_exchange.keepAlive && !m_isFinishing;
    m_stream.expires_after(m_options.replyLimit);
    const auto status = static_cast<http::status>(reply.status);
    const auto sent = [self = shared_from_this()](beast::error_code error, std::size_t) {
        self->OnReplySent(error);
    };
    if (m_exchange.isHead) {
        auto message = std::make_shared<http::response<http::empty_body>>(status, 11);
        SetFields(*message, reply, m_exchange.keepAlive);
        message->content_length(reply.body.size());
        m_response = message;
        http::async_write(m_stream, *message, sent);
        return;
    }
    auto message = std::make_shared<Response>(status, 11, reply.body);
    SetFields(*message, reply, m_exchange.keepAlive);
    message->prepare_payload();
    m_response = message;
    http::async_write(m_stream, *message, sent);
}

void HttpSession::OnReplySent(beast::error_code error)
{
    m_response.reset();
    const bool goesOn = !error && m_state != State::Closed;
    if (goesOn && m_exchange.isUnreadable) {
        Linger();
    } else if (goesOn && m_exchange.keepAlive) {
        AwaitRequest(m_options.idleLimit);
    } else {
        Abort();
    }
}

void HttpSession::Linger()
{
    beast::error_code ignored;
    m_stream.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
    m_stream.expires_after(DiscardTime);
    Discard();
}

void HttpSession::Discard()
{
    m_buffer.clear();
    m_stream.async_read_some(m_buffer.prepare(ReadAtOnce),
                             [self = shared_from_this()](beast::error_code error, std::size_t count) {
                                 self->m_discarded += count;
                                 if (error || self->m_discarded > DiscardLimit) {
                                     self->Abort();
                                 } else {
                                     self->Discard();
                                 }
                             });
}

} // namespace TLGateway
