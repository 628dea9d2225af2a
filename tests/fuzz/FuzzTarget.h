/// @file
/// What a fuzz target is: one routine that takes any bytes and ends the process when something is wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Called by libFuzzer, or by the replay of a corpus.
/// @return 0 always
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Ends the process unless a property holds.
inline void Require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}
