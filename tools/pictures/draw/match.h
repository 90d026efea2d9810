// Whether the shipped files show what the sources draw.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "catalogue.h"

namespace solvanta::pictures {

// What sets two versions of a file's pictures apart, in words; empty when they show the same
// drawing. Edges shaded a little differently, as by another release of the renderer, are the
// same drawing; a moved edge or another colour of an area is not.
std::string difference_text(const std::vector<Image>& drawn, const std::vector<Image>& shipped);

// One line for every file of the catalogue that is missing, broken or shows something else in
// the directory `shipped`. Throws std::runtime_error when a source cannot be rendered.
std::vector<std::string> mismatches(PartLibrary& library, const std::filesystem::path& shipped);

}  // namespace solvanta::pictures
