#include "ListenAddress.h"

#include "CommandError.h"
#include "base/Text.h"

namespace TLGateway {

namespace {

[[noreturn]] void Refuse(std::string_view text)
{
    throw CommandError("--listen " + Quoted(text) +
                       ": expected an IP address and a port from 0 to 65535, for example 127.0.0.1:8080");
}

} // namespace

std::string ListenAddress::HostForUrl() const
{
    return host.find(':') == std::string::npos ? host : "[" + host + "]";
}

ListenAddress ParseListenAddress(std::string_view text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos) {
        Refuse(text);
    }
    std::string_view host = text.substr(0, colon);
    const std::string_view digits = text.substr(colon + 1);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
    } else if (host.find(':') != std::string_view::npos) {
        Refuse(text);
    }
    const bool isNumber = digits.find_first_not_of("0123456789") == std::string_view::npos;
    if (host.empty() || digits.empty() || digits.size() > 5 || !isNumber) {
        Refuse(text);
    }
    const unsigned long port = std::stoul(std::string(digits));
    if (port > 65535) {
        Refuse(text);
    }
    return {std::string(host), static_cast<std::uint16_t>(port)};
}

} // namespace TLGateway
