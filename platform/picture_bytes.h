#pragma once

#include <string_view>

namespace solvanta {

/// Whether a picture file holds its picture to the end, by the structure of its format. Decoders
/// take a file cut short for a whole one and leave the missing part black or blank. `suffix` names
/// the format, "bmp", "gif" or "jpg"; any other counts as whole. Bytes behind the picture don't
/// matter, and a bitmap's own count of its bytes is not asked: both are often wrong in files that
/// show well. Of an animation the first picture counts.
bool is_whole_picture(std::string_view bytes, std::string_view suffix);

}  // namespace solvanta
