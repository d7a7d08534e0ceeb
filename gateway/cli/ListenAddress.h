#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TLGateway {

// Where to listen: an IP address and a port, 0 for a free one.
struct ListenAddress
{
    std::string host;
    std::uint16_t port = 0;

    // The host as a URL needs it: an IPv6 address in brackets.
    [[nodiscard]] std::string HostForUrl() const;
};

// Reads "127.0.0.1:8080" or "[::1]:8080". Throws CommandError.
[[nodiscard]] ListenAddress ParseListenAddress(std::string_view text);

} // namespace TLGateway
