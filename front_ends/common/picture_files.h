#pragma once

#include <functional>
#include <string>

// The files of pictures, as every Host looks for them and reads them.

namespace solvanta {

inline constexpr int largest_picture_side = 4096;                           // in pixels
inline constexpr std::size_t largest_picture_file = std::size_t{65} << 20;  // the largest bitmap

/// The last part of a path.
std::string file_name(const std::string& path);

/// What stands behind the last full stop of its name, in small letters; empty without one.
std::string suffix_of(const std::string& path);

/// The neighbour `Name@2x.ext`, which has two pixels for each of the file's own.
std::string fine_file(const std::string& path);

/// Writes the one line of trouble about a picture's file.
void report_picture(const std::string& path, bool missing);

/// Hands the bytes of the file at `path` and its suffix to `decode`, which answers whether they are
/// a picture that can be shown; so does this. When they are none there is a line of trouble, but
/// not for a missing file that is `optional`. `bytes` is the memory to read into.
bool read_picture(const std::string& path, bool optional, std::string& bytes,
                  const std::function<bool(std::string& bytes, const std::string& suffix)>& decode);

}  // namespace solvanta
