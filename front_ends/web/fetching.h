#pragma once

#include <functional>
#include <string>

namespace solvanta::web {

/// Called with the bytes of a file, or with null when it can't be read.
using Fetched = std::function<void(const std::string* bytes)>;

/// Reads a file beside the page; `path` as the program names its files.
void fetch(const std::string& path, Fetched fetched);

/// Lets the player choose a file of their own and reads it. Nothing is called when they don't.
void choose_file(Fetched fetched);

}  // namespace solvanta::web
