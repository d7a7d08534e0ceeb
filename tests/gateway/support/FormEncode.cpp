#include "support/FormEncode.h"

#include "base/Text.h"

namespace TLGateway {

std::string PercentEncode(std::string_view text)
{
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    std::string out;
    for (const char c : text) {
        if (plain.find(c) != std::string_view::npos) {
            out += c;
        } else {
            out += '%';
            out += ToHex(std::string_view(&c, 1));
        }
    }
    return out;
}

std::string FormEncode(const FormParameters& parameters)
{
    std::string body;
    for (const auto& [name, value] : parameters) {
        body += body.empty() ? "" : "&";
        body += PercentEncode(name) + "=" + PercentEncode(value);
    }
    return body;
}

} // namespace TLGateway
