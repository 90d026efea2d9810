#include "front_ends/win32/bitmap.h"

#include <algorithm>
#include <array>
#include <vector>

namespace solvanta::win32 {
namespace {

constexpr std::uint32_t opaque = 0xFF000000;

/// What a pixel of the scaled picture covers of the lines or columns of the source: from `first`
/// on, each by its share of the whole.
struct Cover {
    int first = 0;
    std::vector<float> shares;
};

std::vector<Cover> covers(int from, int to) {
    std::vector<Cover> result(static_cast<std::size_t>(to));
    for (int i = 0; i < to; ++i) {
        const double begin = static_cast<double>(i) * from / to;
        const double end = static_cast<double>(i + 1) * from / to;
        Cover& cover = result[static_cast<std::size_t>(i)];
        cover.first = static_cast<int>(begin);
        for (int place = cover.first; place < from && place < end; ++place) {
            const double part = std::min(end, place + 1.0) - std::max<double>(begin, place);
            cover.shares.push_back(static_cast<float>(part / (end - begin)));
        }
    }
    return result;
}

using Channels = std::array<float, 4>;

void add(Channels& sum, std::uint32_t pixel, float share) {
    for (float& channel : sum) {
        channel += share * static_cast<float>(pixel & 0xFFU);
        pixel >>= 8U;
    }
}

std::uint32_t to_pixel(const Channels& channels) {
    std::uint32_t pixel = 0;
    for (std::size_t i = channels.size(); i-- > 0;)
        pixel = (pixel << 8U) | static_cast<std::uint32_t>(channels[i]);
    return pixel;
}

std::uint32_t mean(const Bitmap& source, const Cover& lines, const Cover& columns) {
    Channels sum{0.5F, 0.5F, 0.5F, 0.5F};  // for the cutting off to round
    int y = lines.first;
    for (const float height : lines.shares) {
        const std::uint32_t* pixel = source.line(y++) + columns.first;
        for (const float width : columns.shares)
            add(sum, *pixel++, width * height);
    }
    return to_pixel(sum);
}

}  // namespace

Bitmap::Bitmap(SIZE size) {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = size.cx;
    description.bmiHeader.biHeight = -size.cy;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    handle_.reset(CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (empty()) return;
    pixels_ = static_cast<std::uint32_t*>(pixels);
    size_ = size;
}

bool Bitmap::is_opaque() const {
    return std::all_of(line(0), line(size_.cy),
                       [](std::uint32_t pixel) { return (pixel & opaque) == opaque; });
}

Bitmap Bitmap::scaled_to(SIZE size) const {
    Bitmap result(size);
    if (result.empty()) return result;
    const std::vector<Cover> columns = covers(size_.cx, size.cx);
    int y = 0;
    for (const Cover& lines : covers(size_.cy, size.cy)) {
        std::uint32_t* pixel = result.line(y++);
        for (const Cover& column : columns)
            *pixel++ = mean(*this, lines, column);
    }
    return result;
}

}  // namespace solvanta::win32
