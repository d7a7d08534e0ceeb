#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>

#include <cstdint>
#include <string>

namespace TLGateway {

// A connection over which a test writes bytes as it likes.
class HttpClient final
{
public:
    struct Reply
    {
        int status = 0;
        std::string header;
        std::string body;
    };

    explicit HttpClient(std::uint16_t port);
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    void Write(const std::string& bytes);
    // Reads one reply with a Content-Length; without its body for a HEAD. Throws when the connection ends
    // before.
    Reply Read(bool isHead = false);
    // Waits until the server closes; gives what came before.
    std::string ReadToEnd();

    static std::string Post(const std::string& body, const std::string& more = {});

private:
    boost::asio::io_context m_context;
    boost::asio::ip::tcp::socket m_socket;
    std::string m_received;
};

} // namespace TLGateway
