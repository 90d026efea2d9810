// Few colours for the formats that hold no more than 256.
#pragma once

#include "image.h"

namespace solvanta::pictures {

// A picture as indexes into a palette; transparent pixels have index 0.
struct IndexedImage {
    int width = 0;
    int height = 0;
    std::vector<Pixel> palette;
    std::vector<std::uint8_t> indexes;
};

// Reduces a picture to at most `colour_limit` (2..256) opaque colours. Every palette colour
// occurs in the picture, so flat areas keep their colour exactly. Alpha below one half counts
// as transparent.
IndexedImage quantise(const Image& image, std::size_t colour_limit);

}  // namespace solvanta::pictures
