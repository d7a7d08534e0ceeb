#include "store/StoreUrl.h"

#include "envelope/Text.h"

#include <stdexcept>

namespace TLGateway {

std::string SqliteFileOfUrl(std::string_view url)
{
    constexpr std::string_view scheme = "sqlite:";
    if (url.substr(0, scheme.size()) != scheme) {
        throw std::invalid_argument("database " + Quoted(url) +
                                    ": expected sqlite:FILE, for example sqlite:/var/lib/" +
                                    "tl-gateway/gateway.db");
    }
    const std::string_view file = url.substr(scheme.size());
    if (file.empty()) {
        throw std::invalid_argument("database " + Quoted(url) + ": no file is named after sqlite:");
    }
    if (file.substr(0, 2) == "//" || file.front() == ':' || file.find('\0') != std::string_view::npos) {
        throw std::invalid_argument("database " + Quoted(url) +
                                    ": write the file right after sqlite:, for example sqlite:gateway.db");
    }
    return std::string(file);
}

} // namespace TLGateway
