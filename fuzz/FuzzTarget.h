#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// A fuzzing engine or the replay of a corpus calls this with arbitrary bytes. Each target defines it; it
/// returns 0 and has no state between calls. A reader that breaks a promise aborts the process.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Aborts the process unless `promise` holds.
inline void Require(bool promise, const char* text)
{
    if (!promise) {
        std::fprintf(stderr, "broken: %s\n", text);
        std::abort();
    }
}
