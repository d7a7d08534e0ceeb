#include "base/Random.h"

#include <openssl/rand.h>

#include <stdexcept>

namespace TLGateway {

std::string RandomBytes(std::size_t count)
{
    std::string bytes(count, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<int>(count)) != 1) {
        throw std::runtime_error("the system's random source failed");
    }
    return bytes;
}

} // namespace TLGateway
