#pragma once

#include <cstdint>

#include "core/deal.h"

namespace solvanta {

/// Random values from a fixed seed: the same on every platform for the same seed.
RandomSource random_from_seed(std::uint64_t seed);

/// Random values seeded from the system clock at the moment of the call.
RandomSource random_from_clock();

}  // namespace solvanta
