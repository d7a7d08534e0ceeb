#include "support/HttpClient.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>

#include <stdexcept>

namespace TLGateway {

namespace net = boost::asio;

HttpClient::HttpClient(std::uint16_t port) : m_socket(m_context)
{
    m_socket.connect({net::ip::address_v4::loopback(), port});
}

void HttpClient::Write(const std::string& bytes)
{
    net::write(m_socket, net::buffer(bytes));
}

HttpClient::Reply HttpClient::Read(bool isHead)
{
    const std::size_t headerSize = net::read_until(m_socket, net::dynamic_buffer(m_received), "\r\n\r\n");
    Reply reply;
    reply.header = m_received.substr(0, headerSize);
    m_received.erase(0, headerSize);
    reply.status = std::stoi(reply.header.substr(reply.header.find(' ') + 1, 3));
    if (isHead || reply.status == 100) {
        return reply;
    }
    const std::string field = "Content-Length: ";
    const std::size_t at = reply.header.find(field);
    if (at == std::string::npos) {
        throw std::runtime_error("a reply without Content-Length");
    }
    const std::size_t size = std::stoul(reply.header.substr(at + field.size()));
    if (m_received.size() < size) {
        net::read(m_socket, net::dynamic_buffer(m_received), net::transfer_exactly(size - m_received.size()));
    }
    reply.body = m_received.substr(0, size);
    m_received.erase(0, size);
    return reply;
}

std::string HttpClient::ReadToEnd()
{
    boost::system::error_code error;
    net::read(m_socket, net::dynamic_buffer(m_received), error);
    return m_received;
}

std::string HttpClient::Post(const std::string& body, const std::string& more)
{
    return "POST /gateway HTTP/1.1\r\nHost: localhost\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\n" + more + "\r\n" + body;
}

} // namespace TLGateway
