#include "quantise.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <stdexcept>

namespace solvanta::pictures {

namespace {

using Colour = std::array<std::uint8_t, 3>;

struct Count {
    Colour colour{};
    std::size_t pixels = 0;
};

// A box in colour space: the colours of a range of the table of counts.
struct Box {
    std::vector<Count> counts;

    // The channel in which the colours spread most, and how far they do.
    std::pair<std::size_t, int> widest() const {
        std::pair<std::size_t, int> best{0, -1};
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const auto [low, high] = std::minmax_element(
                counts.begin(), counts.end(), [channel](const Count& a, const Count& b) {
                    return a.colour[channel] < b.colour[channel];
                });
            const int spread = high->colour[channel] - low->colour[channel];
            if (spread > best.second) {
                best = {channel, spread};
            }
        }
        return best;
    }
};

bool is_opaque(const Pixel& pixel) {
    return pixel.alpha >= 128;
}

Colour colour_of(const Pixel& pixel) {
    return {pixel.red, pixel.green, pixel.blue};
}

Box count_colours(const Image& image) {
    std::map<Colour, std::size_t> table;
    for (const Pixel& pixel : image.pixels) {
        if (is_opaque(pixel)) {
            ++table[colour_of(pixel)];
        }
    }
    Box box;
    for (const auto& [colour, pixels] : table) {
        box.counts.push_back({colour, pixels});
    }
    return box;
}

// Cuts the box at the middle of its widest channel; both halves are non-empty because the
// colours of a box with more than one colour spread in that channel.
Box split(Box& box) {
    const std::size_t channel = box.widest().first;
    std::sort(box.counts.begin(), box.counts.end(), [channel](const Count& a, const Count& b) {
        return a.colour[channel] < b.colour[channel];
    });
    const int middle =
        (box.counts.front().colour[channel] + box.counts.back().colour[channel] + 1) / 2;
    const auto cut = std::find_if(box.counts.begin(), box.counts.end(), [&](const Count& count) {
        return count.colour[channel] >= middle;
    });
    Box upper;
    upper.counts.assign(cut, box.counts.end());
    box.counts.erase(cut, box.counts.end());
    return upper;
}

std::vector<Box> cut_boxes(const Image& image, std::size_t colour_limit) {
    std::vector<Box> boxes{count_colours(image)};
    if (boxes.front().counts.empty()) {
        return {};
    }
    while (boxes.size() < colour_limit) {
        const auto widest = std::max_element(
            boxes.begin(), boxes.end(),
            [](const Box& a, const Box& b) { return a.widest().second < b.widest().second; });
        if (widest->widest().second == 0) {
            break;
        }
        Box upper = split(*widest);
        boxes.push_back(std::move(upper));
    }
    return boxes;
}

Colour commonest(const Box& box) {
    return std::max_element(box.counts.begin(), box.counts.end(),
                            [](const Count& a, const Count& b) { return a.pixels < b.pixels; })
        ->colour;
}

}  // namespace

IndexedImage quantise(const Image& image, std::size_t colour_limit) {
    if (colour_limit < 2 || colour_limit > 256) {
        throw std::invalid_argument("palette size out of range");
    }
    IndexedImage result{image.width, image.height, {}, {}};
    std::map<Colour, std::uint8_t> index_of;
    for (const Box& box : cut_boxes(image, colour_limit)) {
        for (const Count& count : box.counts) {
            index_of[count.colour] = static_cast<std::uint8_t>(result.palette.size());
        }
        const Colour colour = commonest(box);
        result.palette.push_back({colour[0], colour[1], colour[2], 255});
    }
    for (const Pixel& pixel : image.pixels) {
        result.indexes.push_back(is_opaque(pixel) ? index_of.at(colour_of(pixel))
                                                  : std::uint8_t{0});
    }
    return result;
}

}  // namespace solvanta::pictures
