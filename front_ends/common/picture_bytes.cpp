#include "front_ends/common/picture_bytes.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "front_ends/common/picture_files.h"

namespace solvanta {
namespace {

/// The bytes of a file by their places; what lies beyond the end reads as zero.
class FileBytes {
  public:
    explicit FileBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }

    unsigned at(std::size_t place) const {
        return place < size() ? static_cast<unsigned char>(bytes_[place]) : 0U;
    }

    /// A number of `count` bytes, the lowest first.
    std::uint32_t number(std::size_t place, int count) const {
        std::uint32_t number = 0;
        for (int i = count - 1; i >= 0; --i)
            number = (number << 8U) | at(place + static_cast<std::size_t>(i));
        return number;
    }

  private:
    std::string_view bytes_;
};

/// Lines are padded to a multiple of four bytes.
std::int64_t line_bytes(std::int64_t width, std::uint32_t bits) {
    return (width * bits + 31) / 32 * 4;
}

/// The bytes of pixels that a bitmap's header announces; none when it is absurd.
std::optional<std::int64_t> bitmap_pixels(const FileBytes& file) {
    constexpr std::uint32_t old_header = 12;
    const bool old = file.number(14, 4) == old_header;
    const std::int64_t width = old ? file.number(18, 2) : file.number(18, 4);
    const std::int64_t lines = old ? file.number(20, 2) : file.number(22, 4);
    // A negative height counts the lines from the top.
    const std::int64_t height = std::min(lines, (std::int64_t{1} << 32) - lines);
    if (std::max(width, height) > largest_picture_side) return std::nullopt;
    const std::uint32_t compression = old ? 0 : file.number(30, 4);
    // Lines of run lengths differ in size: only the header knows what they make together.
    if (compression == 1 || compression == 2) return file.number(34, 4);
    const std::uint32_t bits = file.number(old ? 24 : 28, 2);
    return line_bytes(width, bits) * height;
}

bool bitmap_is_whole(const FileBytes& file) {
    constexpr std::int64_t shortest_headers = 26;
    const std::int64_t start = file.number(10, 4);
    const std::optional<std::int64_t> pixels = bitmap_pixels(file);
    return start >= shortest_headers && pixels &&
           start + *pixels <= static_cast<std::int64_t>(file.size());
}

std::size_t color_table_size(unsigned packed) {
    return (packed & 0x80U) != 0 ? std::size_t{3} << ((packed & 7U) + 1U) : 0;
}

/// The place behind a chain of blocks, each led by its length, of which the last is empty.
std::size_t behind_blocks(const FileBytes& file, std::size_t place) {
    while (file.at(place) != 0)
        place += 1 + file.at(place);
    return place + 1;
}

bool gif_is_whole(const FileBytes& file) {
    constexpr unsigned extension = 0x21;
    constexpr unsigned image = 0x2C;
    std::size_t place = 13 + color_table_size(file.at(10));
    while (file.at(place) == extension)
        place = behind_blocks(file, place + 2);
    if (file.at(place) != image) return false;
    const std::size_t pixels = place + 11 + color_table_size(file.at(place + 9));
    return behind_blocks(file, pixels) <= file.size();
}

bool jpeg_is_whole(const FileBytes& file) {
    constexpr unsigned end_of_image = 0xD9;
    std::size_t place = 2;
    while (place + 1 < file.size()) {
        const unsigned mark = file.at(place + 1);
        if (file.at(place) != 0xFF || mark == 0xFF) {
            ++place;  // pixels, or filling before a mark
        } else if (mark == end_of_image) {
            return true;
        } else if (mark <= 0x01 || (mark >= 0xD0 && mark <= 0xD8)) {
            place += 2;  // a mark without content
        } else {
            place += 2 + file.at(place + 2) * 256 + file.at(place + 3);
        }
    }
    return false;
}

}  // namespace

bool is_whole_picture(std::string_view bytes, std::string_view suffix) {
    const FileBytes file(bytes);
    if (suffix == "bmp") return bitmap_is_whole(file);
    if (suffix == "gif") return gif_is_whole(file);
    if (suffix == "jpg") return jpeg_is_whole(file);
    if (suffix == "png") return bytes.find("IEND\xAE\x42\x60\x82") != std::string_view::npos;
    return true;
}

std::optional<PlainBitmap> plain_bitmap(std::string_view bytes, int largest_side) {
    constexpr unsigned bits = 24;
    const FileBytes file(bytes);
    const std::uint32_t header = file.number(14, 4);
    const bool known_header = header == 40 || header == 108 || header == 124;
    const bool plain =
        file.number(26, 2) == 1 && file.number(28, 2) == bits && file.number(30, 4) == 0;
    if (!bytes.starts_with("BM") || !known_header || !plain || !bitmap_is_whole(file)) return {};
    const std::uint32_t width = file.number(18, 4);
    const std::uint32_t height = file.number(22, 4);  // beyond any limit where lines run downwards
    const auto limit = static_cast<std::uint32_t>(largest_side);
    if (width == 0 || width > limit || height == 0 || height > limit) return {};
    return PlainBitmap{static_cast<int>(width), static_cast<int>(height), file.number(10, 4),
                       static_cast<std::size_t>(line_bytes(width, bits))};
}

void copy_pixels(std::string_view bytes, const PlainBitmap& bitmap,
                 const std::function<std::uint32_t*(int y)>& line) {
    const auto* from = reinterpret_cast<const unsigned char*>(bytes.data()) + bitmap.start;
    for (int y = bitmap.height - 1; y >= 0; --y, from += bitmap.line_bytes) {
        std::uint32_t* const pixels = line(y);
        const unsigned char* bgr = from;
        for (int x = 0; x < bitmap.width; ++x, bgr += 3)
            pixels[x] =
                0xFF000000U | std::uint32_t{bgr[2]} << 16U | std::uint32_t{bgr[1]} << 8U | bgr[0];
    }
}

}  // namespace solvanta
