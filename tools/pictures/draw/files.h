// Whole files in and out.
#pragma once

#include <filesystem>

#include "image.h"

namespace solvanta::pictures {

// Both throw std::runtime_error, naming the file, when it cannot be read or written whole.
Bytes read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, const Bytes& bytes);

}  // namespace solvanta::pictures
