#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace solvanta {

/// Whether a picture file holds its picture to the end, by the structure of its format. Decoders
/// take a file cut short for a whole one and leave the missing part black or blank. `suffix` names
/// the format, "bmp", "gif", "jpg" or "png"; any other counts as whole. Bytes behind the picture
/// don't matter, and a bitmap's own count of its bytes is not asked: both are often wrong in files
/// that show well. Of an animation the first picture counts. A bitmap that announces a side beyond
/// `largest_picture_side` is not whole.
bool is_whole_picture(std::string_view bytes, std::string_view suffix);

/// Where a bitmap file has its pixels: three bytes each, blue first, in lines from the bottom up.
struct PlainBitmap {
    int width = 0;
    int height = 0;
    std::size_t start = 0;       ///< of the bottom line in the file
    std::size_t line_bytes = 0;  ///< from line to line
};

/// The pixels of a whole bitmap of the plainest kind, 24 bits and not compressed, which needs no
/// decoder; nothing for every other file, and for one wider or higher than `largest_side`.
std::optional<PlainBitmap> plain_bitmap(std::string_view bytes, int largest_side);

/// Writes these pixels as 0xFFRRGGBB, a line at a time from the top; `line` tells where each goes.
void copy_pixels(std::string_view bytes, const PlainBitmap& bitmap,
                 const std::function<std::uint32_t*(int y)>& line);

}  // namespace solvanta
