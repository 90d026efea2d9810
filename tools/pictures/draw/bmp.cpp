#include "bmp.h"

#include <stdexcept>

#include "byte_order.h"

namespace solvanta::pictures {

namespace {

constexpr std::uint32_t file_header_size = 14;
constexpr std::uint32_t info_header_size = 40;
constexpr std::uint32_t v5_header_size = 124;
constexpr std::uint32_t no_compression = 0;
constexpr std::uint32_t bit_fields = 3;
constexpr std::uint32_t pixels_per_metre = 3780;  // 96 dots per inch
constexpr int largest_side = 4096;

// Rows are padded to whole groups of four bytes.
std::uint32_t row_bytes(int width, unsigned bits_per_pixel) {
    return (static_cast<std::uint32_t>(width) * bits_per_pixel + 31U) / 32U * 4U;
}

void put_headers(Bytes& file, const Image& image, std::uint32_t header_size, unsigned bits,
                 std::uint32_t compression) {
    const std::uint32_t data_offset = file_header_size + header_size;
    const std::uint32_t data_size =
        row_bytes(image.width, bits) * static_cast<std::uint32_t>(image.height);
    file.push_back('B');
    file.push_back('M');
    put_32(file, data_offset + data_size);
    put_32(file, 0);
    put_32(file, data_offset);
    put_32(file, header_size);
    put_32(file, static_cast<std::uint32_t>(image.width));
    put_32(file, static_cast<std::uint32_t>(image.height));
    put_16(file, 1);
    put_16(file, bits);
    put_32(file, compression);
    put_32(file, data_size);
    put_32(file, pixels_per_metre);
    put_32(file, pixels_per_metre);
    put_32(file, 0);
    put_32(file, 0);
}

void put_v5_fields(Bytes& file) {
    put_32(file, 0x00FF0000U);
    put_32(file, 0x0000FF00U);
    put_32(file, 0x000000FFU);
    put_32(file, 0xFF000000U);
    put_32(file, 0x73524742U);  // colour space sRGB
    file.insert(file.end(), 36 + 12, 0);
    put_32(file, 4);  // intent: keep the picture's contrast
    file.insert(file.end(), 12, 0);
}

void put_bgr(Bytes& file, const Pixel& pixel) {
    file.push_back(pixel.blue);
    file.push_back(pixel.green);
    file.push_back(pixel.red);
}

void require(bool condition, const char* complaint) {
    if (!condition) {
        throw std::runtime_error(complaint);
    }
}

}  // namespace

Bytes encode_bmp_24(const Image& image) {
    Bytes file;
    put_headers(file, image, info_header_size, 24, no_compression);
    const std::size_t padding =
        row_bytes(image.width, 24) - static_cast<std::size_t>(image.width) * 3;
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            put_bgr(file, image.at(x, y));
        }
        file.insert(file.end(), padding, 0);
    }
    return file;
}

Bytes encode_bmp_32(const Image& image) {
    Bytes file;
    put_headers(file, image, v5_header_size, 32, bit_fields);
    put_v5_fields(file);
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            const Pixel& pixel = image.at(x, y);
            put_bgr(file, pixel.alpha == 0 ? table_green : pixel);
            file.push_back(pixel.alpha);
        }
    }
    return file;
}

BmpHeader read_bmp_header(const Bytes& file) {
    require(get_8(file, 0) == 'B' && get_8(file, 1) == 'M', "not a BMP file");
    BmpHeader header;
    header.data_offset = get_32(file, 10);
    header.header_size = get_32(file, 14);
    header.width = get_signed_32(file, 18);
    header.height = get_signed_32(file, 22);
    header.bits_per_pixel = get_16(file, 28);
    header.compression = get_32(file, 30);
    const bool plain = header.header_size == info_header_size && header.bits_per_pixel == 24 &&
                       header.compression == no_compression;
    const bool with_alpha = header.header_size == v5_header_size && header.bits_per_pixel == 32 &&
                            header.compression == bit_fields;
    require(plain || with_alpha, "neither a plain 24-bit nor a 32-bit alpha BMP file");
    require(header.width > 0 && header.width <= largest_side && header.height > 0 &&
                header.height <= largest_side,
            "BMP size out of range");
    require(header.data_offset == file_header_size + header.header_size,
            "BMP pixels not behind the header");
    const std::size_t whole = header.data_offset + static_cast<std::size_t>(row_bytes(
                                                       header.width, header.bits_per_pixel)) *
                                                       static_cast<std::size_t>(header.height);
    require(file.size() == whole && get_32(file, 2) == whole, "BMP file of wrong length");
    header.alpha_mask = with_alpha ? get_32(file, 66) : 0;
    return header;
}

Image decode_bmp(const Bytes& file) {
    const BmpHeader header = read_bmp_header(file);
    Image image(header.width, header.height);
    const std::size_t row = row_bytes(header.width, header.bits_per_pixel);
    const std::size_t step = header.bits_per_pixel / 8U;
    for (int y = 0; y < image.height; ++y) {
        std::size_t position =
            header.data_offset + row * static_cast<std::size_t>(image.height - 1 - y);
        for (int x = 0; x < image.width; ++x, position += step) {
            image.at(x, y) =
                Pixel{get_8(file, position + 2), get_8(file, position + 1), get_8(file, position),
                      step == 4 ? get_8(file, position + 3) : std::uint8_t{255}};
        }
    }
    return image;
}

}  // namespace solvanta::pictures
