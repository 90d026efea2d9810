#include "canvas.h"

#include <cmath>
#include <stdexcept>

namespace solvanta::pictures {

namespace {

void require_success(cairo_status_t status) {
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(std::string("drawing failed: ") + cairo_status_to_string(status));
    }
}

std::uint8_t divided(std::uint32_t channel, std::uint32_t alpha) {
    return alpha == 0 ? std::uint8_t{0}
                      : static_cast<std::uint8_t>((channel * 255U + alpha / 2U) / alpha);
}

std::uint32_t multiplied(std::uint8_t channel, std::uint8_t alpha) {
    return (static_cast<std::uint32_t>(channel) * alpha + 127U) / 255U;
}

Pixel unpack(std::uint32_t word) {
    const std::uint32_t alpha = word >> 24U;
    return {divided(word >> 16U & 0xFFU, alpha), divided(word >> 8U & 0xFFU, alpha),
            divided(word & 0xFFU, alpha), static_cast<std::uint8_t>(alpha)};
}

std::uint32_t pack(const Pixel& pixel) {
    return static_cast<std::uint32_t>(pixel.alpha) << 24U |
           multiplied(pixel.red, pixel.alpha) << 16U | multiplied(pixel.green, pixel.alpha) << 8U |
           multiplied(pixel.blue, pixel.alpha);
}

std::uint32_t* row_of(cairo_surface_t* surface, int y) {
    unsigned char* data = cairo_image_surface_get_data(surface);
    return reinterpret_cast<std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) *
                                                       cairo_image_surface_get_stride(surface));
}

Surface new_surface(int width, int height) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    require_success(cairo_surface_status(surface.get()));
    return surface;
}

}  // namespace

Canvas::Canvas(double width, double height, double scale)
    : surface_(new_surface(static_cast<int>(std::lround(width * scale)),
                           static_cast<int>(std::lround(height * scale)))),
      context_(cairo_create(surface_.get())) {
    require_success(cairo_status(context_.get()));
    cairo_scale(context_.get(), scale, scale);
}

Image Canvas::image() const {
    require_success(cairo_status(context_.get()));
    return image_of(surface_.get());
}

Image image_of(cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    Image image(cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface));
    for (int y = 0; y < image.height; ++y) {
        const std::uint32_t* row = row_of(surface, y);
        for (int x = 0; x < image.width; ++x) {
            image.at(x, y) = unpack(row[x]);
        }
    }
    return image;
}

Surface surface_of(const Image& image) {
    Surface surface = new_surface(image.width, image.height);
    for (int y = 0; y < image.height; ++y) {
        std::uint32_t* row = row_of(surface.get(), y);
        for (int x = 0; x < image.width; ++x) {
            row[x] = pack(image.at(x, y));
        }
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

}  // namespace solvanta::pictures
