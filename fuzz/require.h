#pragma once

#include <cstdio>
#include <cstdlib>

namespace solvanta::fuzz {

/// Stops at a promise that does not hold.
inline void require(bool holds, const char* promise) {
    if (holds) return;
    std::fputs(promise, stderr);
    std::abort();
}

}  // namespace solvanta::fuzz
