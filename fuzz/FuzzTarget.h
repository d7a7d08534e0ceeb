#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzzing engine, or the replay of a corpus, calls with bytes of any kind. Each target defines it;
/// it returns 0 and keeps no state between calls. A reader that breaks a promise ends the process.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Ends the process when `promise` does not hold.
inline void Require(bool promise, const char* text)
{
    if (!promise) {
        std::fprintf(stderr, "broken: %s\n", text);
        std::abort();
    }
}
