#pragma once

#include <cstdint>

namespace solvanta::benchmarks {

/// What the program has asked of the C++ heap so far.
struct MemoryCount {
    std::int64_t allocations = 0;
    std::int64_t bytes_held = 0;
};

MemoryCount memory_count();

}  // namespace solvanta::benchmarks
