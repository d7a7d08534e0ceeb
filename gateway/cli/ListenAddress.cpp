#include "cli/ListenAddress.h"

#include "cli/CommandError.h"
#include "envelope/Text.h"

namespace TLGateway {

std::string ListenAddress::HostForUrl() const
{
    return host.find(':') == std::string::npos ? host : "[" + host + "]";
}

ListenAddress ParseListenAddress(std::string_view text)
{
    const CommandError error("--listen " + Quoted(text) +
                             ": expected an IP address and a port from 0 to 65535, " +
                             "for example 127.0.0.1:8080");
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos) {
        throw error;
    }
    std::string_view host = text.substr(0, colon);
    const std::string_view digits = text.substr(colon + 1);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
    } else if (host.find(':') != std::string_view::npos) {
        throw error;
    }
    if (host.empty() || digits.empty() || digits.size() > 5) {
        throw error;
    }
    unsigned port = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') {
            throw error;
        }
        port = port * 10 + static_cast<unsigned>(c - '0');
    }
    if (port > 65535) {
        throw error;
    }
    return {std::string(host), static_cast<std::uint16_t>(port)};
}

} // namespace TLGateway
