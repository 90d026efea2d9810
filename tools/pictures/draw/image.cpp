#include "image.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace solvanta::pictures {

namespace {

std::size_t offset(const Image& image, int x, int y) {
    if (x < 0 || y < 0 || x >= image.width || y >= image.height) {
        throw std::out_of_range("pixel outside the picture");
    }
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
           static_cast<std::size_t>(x);
}

int greatest_distance(const Pixel& first, const Pixel& second) {
    if (first.alpha == 0 && second.alpha == 0) {
        return 0;
    }
    return std::max({std::abs(first.red - second.red), std::abs(first.green - second.green),
                     std::abs(first.blue - second.blue), std::abs(first.alpha - second.alpha)});
}

}  // namespace

Image::Image(int image_width, int image_height) : width(image_width), height(image_height) {
    if (width <= 0 || height <= 0) {
        throw std::invalid_argument("picture without pixels");
    }
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                  Pixel{0, 0, 0, 0});
}

Pixel& Image::at(int x, int y) {
    return pixels[offset(*this, x, y)];
}

const Pixel& Image::at(int x, int y) const {
    return pixels[offset(*this, x, y)];
}

int grey_of(const Pixel& pixel) {
    return (299 * pixel.red + 587 * pixel.green + 114 * pixel.blue + 500) / 1000;
}

Difference compare(const Image& first, const Image& second) {
    Difference result;
    result.same_size = first.width == second.width && first.height == second.height;
    if (!result.same_size) {
        return result;
    }
    for (std::size_t i = 0; i < first.pixels.size(); ++i) {
        const int distance = greatest_distance(first.pixels[i], second.pixels[i]);
        result.shaded += distance > shade_tolerance ? 1U : 0U;
        result.changed += distance > change_tolerance ? 1U : 0U;
    }
    return result;
}

}  // namespace solvanta::pictures
