#include "app/random.h"

#include <chrono>
#include <random>

namespace solvanta {

RandomSource random_from_seed(std::uint64_t seed) {
    // The library's distributions differ between platforms, so the 53 bits that a double holds
    // are mapped to [0, 1) here.
    return [engine = std::mt19937_64(seed)]() mutable {
        return static_cast<double>(engine() >> 11U) * 0x1.0p-53;
    };
}

RandomSource random_from_clock() {
    using std::chrono::nanoseconds;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto count = std::chrono::duration_cast<nanoseconds>(now).count();
    return random_from_seed(static_cast<std::uint64_t>(count));
}

}  // namespace solvanta
