#include "envelope/Signing.h"

#include "base/Hashing.h"
#include "base/Text.h"

namespace TLGateway {

std::string BytesToSign(const FormParameters& parameters)
{
    std::string bytes;
    for (const auto& [name, value] : parameters) {
        if (name != "sign") {
            bytes += name;
            bytes += '=';
            bytes += value;
            bytes += '\n';
        }
    }
    return bytes;
}

std::string Sign(const FormParameters& parameters, std::string_view secret)
{
    return ToHex(HmacSha256(secret, BytesToSign(parameters)));
}

} // namespace TLGateway
