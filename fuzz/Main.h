// The entry that libFuzzer calls, around one target.
#pragma once

#include <cstddef>
#include <cstdint>

#include "fuzz/Targets.h"

#define QUILLON_FUZZ(Target)                                                           \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size); \
    int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {           \
        Target({reinterpret_cast<const char*>(data), size});                           \
        return 0;                                                                      \
    }                                                                                  \
    static_assert(true)
