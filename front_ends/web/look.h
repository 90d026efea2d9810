#pragma once

#include <string>

#include "front_ends/web/node.h"

namespace solvanta::web {

/// A color as style sheets write it.
std::string to_css(const Color& color);

const char* to_css(Alignment alignment);

/// The families of a font, for a style sheet: its own name and a kind that every browser has.
std::string font_families(const std::string& family);

/// Sets size, weight and families; nothing for the standard font.
void set_font(const Node& node, const Font& font);

}  // namespace solvanta::web
