// The ICO container: one file with the program's icon in several sizes and depths.
#pragma once

#include "image.h"

namespace solvanta::pictures {

// One picture of an icon file, square, 1..256 pixels a side.
struct IconEntry {
    Image image;
    unsigned bits_per_pixel = 32;  // 32 with alpha, or 8: 256 colours, alpha on or off
};

// Entries of 256 pixels are stored as PNG, all others as bitmaps with mask, as every desktop
// reads them. Throws std::invalid_argument for a size or depth beyond those above.
Bytes encode_ico(const std::vector<IconEntry>& entries);

// Throws std::runtime_error when the bytes are not an icon file as written above.
std::vector<IconEntry> decode_ico(const Bytes& file);

}  // namespace solvanta::pictures
