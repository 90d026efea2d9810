#pragma once

#include <string>

// The files of pictures, as every Host looks for them and reads them.

namespace solvanta {

inline constexpr int largest_picture_side = 4096;                           // in pixels
inline constexpr std::size_t largest_picture_file = std::size_t{65} << 20;  // the largest bitmap

/// The last part of a path.
std::string file_name(const std::string& path);

/// What stands behind the last full stop of its name, in small letters; empty without one.
std::string suffix_of(const std::string& path);

/// Pictures are prepared up to so many times their size.
inline constexpr int largest_prepared = 4;

/// The neighbour `Name@2x.png`, `Name@3x.png` or `Name@4x.png`, with so many pixels for each of the
/// file's own across and down.
std::string larger_file(const std::string& path, int times);

/// Writes the one line of trouble about a picture's file.
void report_picture(const std::string& path, bool missing);

/// Reads the file at `path` into `bytes`; answers whether they are whole, as far as can be told by
/// the structure. When they are not there is a line of trouble, but not for a missing file that is
/// `optional`.
bool read_picture(const std::string& path, bool optional, std::string& bytes);

}  // namespace solvanta
