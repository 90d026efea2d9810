#include "rich_text/rtf_tables.h"

#include <cstdint>
#include <utility>

#include "rich_text/rtf_words.h"
#include "rich_text/storable_text.h"

namespace solvanta {

void RtfFonts::word(std::string_view name, RtfNumber number, RtfGroup& /*group*/) {
    constexpr int symbol_charset = 2;
    if (name == "f") {
        end_font();
        number_ = number.value_or(0);
    } else if (name == "fcharset") {
        font_.has_symbols = number == symbol_charset;
    } else if (const auto kind = font_kind_named(name)) {
        font_.kind = *kind;
    }
}

void RtfFonts::character(char16_t unit, const RtfGroup& /*group*/) {
    constexpr std::size_t longest_name = 64;
    if (unit == u';') return end_font();
    if (font_.name.size() < longest_name) font_.name += unit;
}

void RtfFonts::end_font() {
    constexpr std::size_t most_fonts = 1024;
    const Unfinished font = std::exchange(font_, {});
    if (font.name.empty() || fonts_.size() >= most_fonts) return;
    const std::string family = storable_text(font.name);
    const FontKind known = font_kind(family);
    by_number_[number_] = {fonts_.size(), font.has_symbols};
    fonts_.push_back({family, known == FontKind::Unknown ? font.kind : known});
}

const RtfFonts::Font* RtfFonts::find(RtfNumber number) const {
    const auto found = by_number_.find(number.value_or(default_));
    return found == by_number_.end() ? nullptr : &found->second;
}

void RtfColors::word(std::string_view name, RtfNumber number, RtfGroup& /*group*/) {
    const auto channel = name == "red"     ? &Color::red
                         : name == "green" ? &Color::green
                         : name == "blue"  ? &Color::blue
                                           : nullptr;
    if (channel == nullptr) return;
    if (!color_) color_.emplace();
    (*color_).*channel = static_cast<std::uint8_t>(within(number, 0, 0, 255));
}

void RtfColors::character(char16_t unit, const RtfGroup& /*group*/) {
    constexpr std::size_t most_colors = 4096;
    if (unit != u';') return;
    const auto color = std::exchange(color_, std::nullopt);
    if (colors_.size() < most_colors) colors_.push_back(color);
}

std::optional<Color> RtfColors::color(RtfNumber number) const {
    if (!number || *number < 0 || static_cast<std::size_t>(*number) >= colors_.size()) return {};
    return colors_[static_cast<std::size_t>(*number)];
}

}  // namespace solvanta
