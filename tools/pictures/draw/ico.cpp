#include "ico.h"

#include <stdexcept>

#include "byte_order.h"
#include "codecs.h"
#include "quantise.h"

namespace solvanta::pictures {

namespace {

constexpr std::uint32_t directory_size = 6;
constexpr std::uint32_t directory_entry_size = 16;
constexpr std::uint32_t info_header_size = 40;
constexpr std::uint32_t palette_bytes = 256 * 4;
constexpr int largest_side = 256;

// Rows of the one-bit mask, padded to whole groups of four bytes.
std::size_t mask_row_bytes(int side) {
    return (static_cast<std::size_t>(side) + 31) / 32 * 4;
}

// Sides of the bitmap entries are multiples of four, so that no row of pixels needs padding.
bool is_bitmap_side(int side) {
    return side > 0 && side < largest_side && side % 4 == 0;
}

void put_bitmap_header(Bytes& bytes, const IconEntry& entry) {
    put_32(bytes, info_header_size);
    put_32(bytes, static_cast<std::uint32_t>(entry.image.width));
    put_32(bytes, static_cast<std::uint32_t>(entry.image.height) * 2);  // pixels and mask
    put_16(bytes, 1);
    put_16(bytes, entry.bits_per_pixel);
    for (int i = 0; i < 6; ++i) {
        put_32(bytes, 0);
    }
}

void put_bgra(Bytes& bytes, const Pixel& pixel) {
    bytes.insert(bytes.end(), {pixel.blue, pixel.green, pixel.red, pixel.alpha});
}

void put_mask(Bytes& bytes, const Image& image) {
    for (int y = image.height - 1; y >= 0; --y) {
        Bytes row(mask_row_bytes(image.width), 0);
        for (int x = 0; x < image.width; ++x) {
            if (image.at(x, y).alpha < 128) {
                std::uint8_t& group = row[static_cast<std::size_t>(x) / 8];
                group = static_cast<std::uint8_t>(group | 0x80U >> static_cast<unsigned>(x % 8));
            }
        }
        bytes.insert(bytes.end(), row.begin(), row.end());
    }
}

// Index 0 is kept black for the transparent pixels, which the mask only hides over black.
void put_indexed_pixels(Bytes& bytes, const Image& image) {
    const IndexedImage indexed = quantise(image, 255);
    put_32(bytes, 0);
    for (std::size_t i = 0; i < 255; ++i) {
        Pixel colour = i < indexed.palette.size() ? indexed.palette[i] : Pixel{};
        colour.alpha = 0;
        put_bgra(bytes, colour);
    }
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            const auto at = static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                            static_cast<std::size_t>(x);
            const bool hidden = image.at(x, y).alpha < 128;
            bytes.push_back(hidden ? std::uint8_t{0}
                                   : static_cast<std::uint8_t>(indexed.indexes[at] + 1));
        }
    }
}

void put_true_colour_pixels(Bytes& bytes, const Image& image) {
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            put_bgra(bytes, image.at(x, y));
        }
    }
}

Bytes encode_entry(const IconEntry& entry) {
    const Image& image = entry.image;
    const bool known_depth = entry.bits_per_pixel == 32 || entry.bits_per_pixel == 8;
    if (image.width != image.height || !known_depth) {
        throw std::invalid_argument("icon neither square nor of 8 or 32 bits");
    }
    if (image.width == largest_side && entry.bits_per_pixel == 32) {
        return encode_png(image, true);
    }
    if (!is_bitmap_side(image.width)) {
        throw std::invalid_argument("icon size out of range");
    }
    Bytes bytes;
    put_bitmap_header(bytes, entry);
    if (entry.bits_per_pixel == 8) {
        put_indexed_pixels(bytes, image);
    } else {
        put_true_colour_pixels(bytes, image);
    }
    put_mask(bytes, image);
    return bytes;
}

Bytes part(const Bytes& file, std::size_t start, std::size_t size) {
    if (start > file.size() || size > file.size() - start) {
        throw std::runtime_error("icon file too short");
    }
    const auto begin = file.begin() + static_cast<std::ptrdiff_t>(start);
    return {begin, begin + static_cast<std::ptrdiff_t>(size)};
}

bool is_hidden(const Bytes& bitmap, std::size_t mask_start, int side, int x, int row) {
    const std::size_t at = mask_start + static_cast<std::size_t>(row) * mask_row_bytes(side) +
                           static_cast<std::size_t>(x) / 8;
    return (get_8(bitmap, at) & 0x80U >> static_cast<unsigned>(x % 8)) != 0;
}

Pixel pixel_at(const Bytes& bitmap, std::size_t position) {
    return {get_8(bitmap, position + 2), get_8(bitmap, position + 1), get_8(bitmap, position),
            get_8(bitmap, position + 3)};
}

IconEntry decode_bitmap(const Bytes& bitmap) {
    const int side = get_signed_32(bitmap, 4);
    const unsigned bits = get_16(bitmap, 14);
    if (!is_bitmap_side(side) || get_signed_32(bitmap, 8) != 2 * side ||
        (bits != 8 && bits != 32)) {
        throw std::runtime_error("icon bitmap of unknown kind");
    }
    IconEntry entry{Image(side, side), bits};
    const std::size_t pixels = info_header_size + (bits == 8 ? palette_bytes : 0);
    const auto area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    const std::size_t mask = pixels + area * (bits / 8);
    for (int row = 0; row < side; ++row) {
        for (int x = 0; x < side; ++x) {
            const auto at = static_cast<std::size_t>(row) * static_cast<std::size_t>(side) +
                            static_cast<std::size_t>(x);
            Pixel& pixel = entry.image.at(x, side - 1 - row);
            if (bits == 32) {
                pixel = pixel_at(bitmap, pixels + 4 * at);
            } else {
                pixel = pixel_at(bitmap, info_header_size + 4U * get_8(bitmap, pixels + at));
                pixel.alpha =
                    is_hidden(bitmap, mask, side, x, row) ? std::uint8_t{0} : std::uint8_t{255};
            }
        }
    }
    return entry;
}

}  // namespace

Bytes encode_ico(const std::vector<IconEntry>& entries) {
    Bytes file;
    put_16(file, 0);
    put_16(file, 1);
    put_16(file, static_cast<unsigned>(entries.size()));
    Bytes pictures;
    const auto start =
        static_cast<std::uint32_t>(directory_size + directory_entry_size * entries.size());
    for (const IconEntry& entry : entries) {
        const Bytes picture = encode_entry(entry);
        const auto side = static_cast<std::uint8_t>(entry.image.width % largest_side);
        file.insert(file.end(), {side, side, 0, 0});
        put_16(file, 1);
        put_16(file, entry.bits_per_pixel);
        put_32(file, static_cast<std::uint32_t>(picture.size()));
        put_32(file, start + static_cast<std::uint32_t>(pictures.size()));
        pictures.insert(pictures.end(), picture.begin(), picture.end());
    }
    file.insert(file.end(), pictures.begin(), pictures.end());
    return file;
}

std::vector<IconEntry> decode_ico(const Bytes& file) {
    if (get_16(file, 0) != 0 || get_16(file, 2) != 1) {
        throw std::runtime_error("not an icon file");
    }
    std::vector<IconEntry> entries;
    const unsigned count = get_16(file, 4);
    for (unsigned i = 0; i < count; ++i) {
        const std::size_t at = directory_size + std::size_t{directory_entry_size} * i;
        const Bytes picture = part(file, get_32(file, at + 12), get_32(file, at + 8));
        const bool is_bitmap = get_8(picture, 0) == info_header_size;
        entries.push_back(is_bitmap ? decode_bitmap(picture) : IconEntry{decode_png(picture), 32});
        const unsigned promised = get_8(file, at) == 0 ? 256U : get_8(file, at);
        if (entries.back().image.width != static_cast<int>(promised) ||
            entries.back().bits_per_pixel != get_16(file, at + 6)) {
            throw std::runtime_error("icon entry is not what the directory promises");
        }
    }
    return entries;
}

}  // namespace solvanta::pictures
