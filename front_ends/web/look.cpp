#include "front_ends/web/look.h"

#include "rich_text/font_kind.h"

namespace solvanta::web {

std::string to_css(const Color& color) {
    return "rgb(" + std::to_string(color.red) + ' ' + std::to_string(color.green) + ' ' +
           std::to_string(color.blue) + ')';
}

const char* to_css(Alignment alignment) {
    if (alignment == Alignment::Right) return "right";
    return alignment == Alignment::Centered ? "center" : "left";
}

std::string font_families(const std::string& family) {
    std::string quoted = family;
    std::erase_if(quoted, [](char c) { return c == '"' || c == '\\'; });
    const std::string own = quoted.empty() ? "" : '"' + quoted + "\", ";
    const FontKind kind = font_kind(family);
    if (kind == FontKind::Serif) return own + "\"Liberation Serif\", serif";
    if (kind == FontKind::FixedPitch) return own + "\"Liberation Mono\", monospace";
    return own + "\"Liberation Sans\", Arial, sans-serif";
}

void set_font(const Node& node, const Font& font) {
    if (font.family.empty()) return;
    constexpr double pixels_per_point = 96.0 / 72;
    node.style("--font", font.points * pixels_per_point);
    node.style("font-family", font_families(font.family));
    if (font.bold) node.style("font-weight", "bold");
}

}  // namespace solvanta::web
