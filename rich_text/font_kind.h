#pragma once

#include <string_view>

namespace solvanta {

enum class FontKind { Unknown, Sans, Serif, FixedPitch, Symbols };

/// The kind of a font family known by name, whatever its case and the blanks around it; Unknown
/// for every other name.
FontKind font_kind(std::string_view name);

}  // namespace solvanta
