// BMP files: the plain 24-bit kind for pictures without holes, the 32-bit kind for the pointer.
#pragma once

#include "image.h"

namespace solvanta::pictures {

// Uncompressed, 24 bits a pixel, rows from the bottom, 96 dots per inch; alpha is dropped.
Bytes encode_bmp_24(const Image& image);

// Uncompressed, 32 bits a pixel with channel masks in a version 5 header, so that readers
// which know alpha masks find the alpha channel. Wholly transparent pixels carry the table's
// green, which is what a reader without alpha then shows.
Bytes encode_bmp_32(const Image& image);

// What a BMP file's header promises.
struct BmpHeader {
    std::uint32_t header_size = 0;
    int width = 0;
    int height = 0;
    unsigned bits_per_pixel = 0;
    std::uint32_t compression = 0;
    std::uint32_t data_offset = 0;
    std::uint32_t alpha_mask = 0;
};

// Both throw std::runtime_error when the bytes are not a BMP file of one of the two kinds
// above, whole and without bytes to spare.
BmpHeader read_bmp_header(const Bytes& file);
Image decode_bmp(const Bytes& file);

}  // namespace solvanta::pictures
