#include "front_ends/common/resample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace solvanta {
namespace {

constexpr std::size_t channels = 4;
constexpr float full = 255;
constexpr int block = 8;  // pixels across and down in which pictures are compared

using Light = std::vector<float>;  // of pixels one after the other, four channels each

/// By what each value of a channel shines, 0 to 1. Alpha is an amount already.
const std::array<float, 256>& lights() {
    static const auto table = [] {
        std::array<float, 256> values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const float value = static_cast<float>(i) / full;
            values[i] =
                value <= 0.04045F ? value / 12.92F : std::pow((value + 0.055F) / 1.055F, 2.4F);
        }
        return values;
    }();
    return table;
}

/// The value of a channel that shines so.
std::uint32_t value_of(float light) {
    constexpr std::size_t steps = 8192;  // enough for neighbouring values to be told apart
    static const auto table = [] {
        std::array<std::uint8_t, steps + 1> values{};
        for (std::size_t i = 0; i <= steps; ++i) {
            const float value = std::min(1.0F, (static_cast<float>(i) + 0.5F) / steps);
            const float shown =
                value <= 0.0031308F ? value * 12.92F : 1.055F * std::pow(value, 1 / 2.4F) - 0.055F;
            values[i] = static_cast<std::uint8_t>(std::lround(shown * full));
        }
        return values;
    }();
    return table[static_cast<std::size_t>(std::clamp(light, 0.0F, 1.0F) * steps)];
}

/// What of a line of pixels falls into one pixel of another: from `first` on, in such parts.
struct Share {
    int first = 0;
    std::vector<float> parts;
};

std::vector<Share> shares(int from, int to) {
    std::vector<Share> result;
    const double step = static_cast<double>(from) / to;
    for (int i = 0; i < to; ++i) {
        const double begin = i * step;
        const double end = begin + step;
        Share share{static_cast<int>(begin), {}};
        for (int at = share.first; at < from && at < end; ++at) {
            const double part = std::min(end, at + 1.0) - std::max(begin, static_cast<double>(at));
            share.parts.push_back(static_cast<float>(part / step));
        }
        result.push_back(std::move(share));
    }
    return result;
}

/// A colour of its own of what was multiplied by alpha, which is above 0.
std::uint32_t divided(std::uint32_t channel, std::uint32_t alpha) {
    return std::min(255U, (channel * 255 + alpha / 2) / alpha);
}

/// Adds a part of a pixel to four channels of light.
void add_pixel(std::uint32_t pixel, float part, float* sum) {
    const std::uint32_t alpha = pixel >> 24U;
    if (alpha == 0) return;
    const float amount = part * static_cast<float>(alpha) / full;
    for (const unsigned shift : {0U, 8U, 16U})
        *sum++ += amount * lights()[divided(pixel >> shift & 0xFFU, alpha)];
    *sum += amount;
}

/// Adds a part of a line of pixels to `sum`.
void add_line(const std::uint32_t* pixels, int width, float part, Light& sum) {
    const auto& light = lights();
    float* out = sum.data();
    for (int x = 0; x < width; ++x, out += channels) {
        const std::uint32_t pixel = pixels[x];
        if (pixel >> 24U != 0xFF) {
            add_pixel(pixel, part, out);
            continue;
        }
        out[0] += part * light[pixel & 0xFFU];
        out[1] += part * light[pixel >> 8U & 0xFFU];
        out[2] += part * light[pixel >> 16U & 0xFFU];
        out[3] += part;
    }
}

std::uint32_t pixel_of(const Light& line, const Share& share) {
    std::array<float, channels> sum{};
    const float* in = &line[static_cast<std::size_t>(share.first) * channels];
    for (const float part : share.parts) {
        for (float& channel : sum)
            channel += part * *in++;
    }
    const auto alpha = static_cast<std::uint32_t>(std::lround(sum[3] * full));
    if (alpha == 0) return 0;
    const auto channel = [&](float light) {
        return (value_of(light / sum[3]) * alpha + 127) / 255;
    };
    return alpha << 24U | channel(sum[2]) << 16U | channel(sum[1]) << 8U | channel(sum[0]);
}

int channel_of(std::uint32_t pixel, unsigned shift) {
    return static_cast<int>(pixel >> shift & 0xFFU);
}

/// How far two pictures of one size differ in a block, in the mean of its channels.
double difference(const PixelGrid& one, const PixelGrid& other, int left, int top) {
    int sum = 0;
    int count = 0;
    for (int y = top; y < std::min(top + block, one.height); ++y) {
        for (int x = left; x < std::min(left + block, one.width); ++x) {
            const std::ptrdiff_t at = std::ptrdiff_t{y} * one.width + x;
            for (const unsigned shift : {0U, 8U, 16U}) {
                sum += std::abs(channel_of(one.pixels[at], shift) -
                                channel_of(other.pixels[at], shift));
                ++count;
            }
        }
    }
    return static_cast<double>(sum) / count;
}

}  // namespace

void resample(const PixelGrid& from, const PixelGrid& to) {
    const std::vector<Share> across = shares(from.width, to.width);
    std::uint32_t* out = to.pixels;
    for (const Share& down : shares(from.height, to.height)) {
        Light line(static_cast<std::size_t>(from.width) * channels);
        const std::uint32_t* in = from.pixels + std::ptrdiff_t{down.first} * from.width;
        for (const float part : down.parts) {
            add_line(in, from.width, part, line);
            in += from.width;
        }
        for (const Share& share : across)
            *out++ = pixel_of(line, share);
    }
}

bool shows_the_same(const PixelGrid& small, const PixelGrid& large, int times) {
    if (large.width != small.width * times || large.height != small.height * times) return false;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(small.width) *
                                      static_cast<std::size_t>(small.height));
    constexpr double most = 10;  // of 255; other cards differ by 50 and more somewhere
    const PixelGrid reduced{pixels.data(), small.width, small.height};
    resample(large, reduced);
    for (int y = 0; y < small.height; y += block) {
        for (int x = 0; x < small.width; x += block) {
            if (difference(small, reduced, x, y) > most) return false;
        }
    }
    return true;
}

}  // namespace solvanta
