#pragma once

#include <cstddef>

namespace TLGateway {

// A file of the source tree that was built into the program.
struct EmbeddedFile
{
    const char* name; // path below gateway/demo
    const char* bytes;
    std::size_t size;
};

} // namespace TLGateway
