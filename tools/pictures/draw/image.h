// Pixel pictures in memory, and the vocabulary all picture code shares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace solvanta::pictures {

// One pixel, 0..255 a channel; colour is not multiplied by alpha.
struct Pixel {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend bool operator==(const Pixel&, const Pixel&) = default;
};

// The green of the card table; it fills the corners outside every card.
inline constexpr Pixel table_green{0, 64, 0, 255};

// A picture of width x height pixels, rows from the top, without padding.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    Image() = default;
    // An image of transparent black; both sizes must be positive.
    Image(int image_width, int image_height);

    // The pixel at column x, row y. Throws std::out_of_range beyond the edges.
    Pixel& at(int x, int y);
    const Pixel& at(int x, int y) const;
};

using Bytes = std::vector<std::uint8_t>;

// Brightness of an opaque pixel as a grey picture shows it, 0 (black) to 255 (white).
int grey_of(const Pixel& pixel);

// How many pixels of two pictures lie how far apart.
struct Difference {
    bool same_size = true;
    std::size_t shaded = 0;   // pixels off by more than shade_tolerance in some channel
    std::size_t changed = 0;  // pixels off by more than change_tolerance in some channel
};

inline constexpr int shade_tolerance = 5;
inline constexpr int change_tolerance = 20;

// Compares channel by channel; pixels transparent in both pictures count as equal.
Difference compare(const Image& first, const Image& second);

}  // namespace solvanta::pictures
