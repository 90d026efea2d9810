#include <algorithm>
#include <csetjmp>
#include <cstdlib>
#include <stdexcept>

#include <png.h>

#include "codecs.h"
#include "quantise.h"

namespace solvanta::pictures {

namespace {

// How far a channel may be off for the sake of a palette: an edge's shade may, while a gradient
// would fall into bands.
constexpr int palette_distance = 16;

// What a file holds; the palette is empty where the rows hold colours.
struct Content {
    png_uint_32 width;
    png_uint_32 height;
    int colour_type;
    std::vector<png_color> palette;
    Bytes rows;
};

void append(png_structp png, png_bytep data, png_size_t size) {
    auto& file = *static_cast<Bytes*>(png_get_io_ptr(png));
    file.insert(file.end(), data, data + size);
}

[[noreturn]] void jump_back(png_structp png, png_const_charp /*message*/) {
    png_longjmp(png, 1);
}

// Unfiltered rows: drawings have areas of one colour, and filtered ones gave larger files.
void set_compression(png_structp png) {
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(png, 9);
    png_set_compression_mem_level(png, 9);
}

// The library reports errors by a jump, which leaves only frames of the library and of functions
// whose variables need no destruction.
bool write(png_structp png, png_infop info, const Content& content, Bytes& file) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_write_fn(png, &file, append, nullptr);
    set_compression(png);
    png_set_IHDR(png, info, content.width, content.height, 8, content.colour_type,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!content.palette.empty()) {
        png_set_PLTE(png, info, content.palette.data(), static_cast<int>(content.palette.size()));
    }
    png_write_info(png, info);
    const std::size_t row = content.rows.size() / content.height;
    for (std::size_t at = 0; at < content.rows.size(); at += row) {
        png_write_row(png, content.rows.data() + at);
    }
    png_write_end(png, nullptr);
    return true;
}

bool is_opaque(const Image& image) {
    return std::all_of(image.pixels.begin(), image.pixels.end(),
                       [](const Pixel& pixel) { return pixel.alpha == 255; });
}

bool is_near(const Image& image, const IndexedImage& indexed, int distance) {
    for (std::size_t at = 0; at < image.pixels.size(); ++at) {
        const Pixel& pixel = image.pixels[at];
        const Pixel& colour = indexed.palette[indexed.indexes[at]];
        if (std::max({std::abs(pixel.red - colour.red), std::abs(pixel.green - colour.green),
                      std::abs(pixel.blue - colour.blue)}) > distance) {
            return false;
        }
    }
    return true;
}

void set_colours(Content& content, const Image& image) {
    const bool opaque = is_opaque(image);
    content.colour_type = opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA;
    for (const Pixel& pixel : image.pixels) {
        content.rows.insert(content.rows.end(), {pixel.red, pixel.green, pixel.blue});
        if (!opaque) {
            content.rows.push_back(pixel.alpha);
        }
    }
}

Content content_of(const Image& image, bool exact) {
    Content content{static_cast<png_uint_32>(image.width),
                    static_cast<png_uint_32>(image.height),
                    PNG_COLOR_TYPE_PALETTE,
                    {},
                    {}};
    const IndexedImage indexed = quantise(image, 256);
    if (!is_opaque(image) || !is_near(image, indexed, exact ? 0 : palette_distance)) {
        set_colours(content, image);
        return content;
    }
    for (const Pixel& colour : indexed.palette) {
        content.palette.push_back({colour.red, colour.green, colour.blue});
    }
    content.rows = indexed.indexes;
    return content;
}

}  // namespace

Bytes encode_png(const Image& image, bool exact) {
    const Content content = content_of(image, exact);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, jump_back, nullptr);
    png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
    Bytes file;
    const bool written = info != nullptr && write(png, info, content, file);
    png_destroy_write_struct(&png, &info);
    if (!written) {
        throw std::runtime_error("PNG picture cannot be written");
    }
    return file;
}

Image decode_png(const Bytes& file) {
    png_image header{};
    header.version = PNG_IMAGE_VERSION;
    Image image;
    if (png_image_begin_read_from_memory(&header, file.data(), file.size()) != 0) {
        header.format = PNG_FORMAT_RGBA;
        image = Image(static_cast<int>(header.width), static_cast<int>(header.height));
        static_assert(sizeof(Pixel) == 4);
        png_image_finish_read(&header, nullptr, image.pixels.data(), 0, nullptr);
    }
    png_image_free(&header);
    if (PNG_IMAGE_FAILED(header)) {
        throw std::runtime_error("not a PNG file");
    }
    return image;
}

}  // namespace solvanta::pictures
