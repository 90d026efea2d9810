#pragma once

#include <cstdint>

namespace solvanta {

/// A picture's pixels in memory: 0xAARRGGBB, the colours multiplied by alpha, the top line first.
/// Whoever has them keeps them.
struct PixelGrid {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
};

/// Fills `to` with the picture of `from` in its size: each pixel is the mean of those that lie in
/// its area, by their light, so that fine lines get neither darker nor blurred. Neither is empty.
void resample(const PixelGrid& from, const PixelGrid& to);

/// Whether `large` shows what `small` does, `times` as wide and as high: scaled down it may differ
/// by no more than what drawing it in so few pixels does.
bool shows_the_same(const PixelGrid& small, const PixelGrid& large, int times);

}  // namespace solvanta
