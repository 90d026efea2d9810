#include "rich_text/font_kind.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace solvanta {
namespace {

using enum FontKind;

constexpr std::pair<std::string_view, FontKind> known_families[]{
    {"arial", Sans},
    {"calibri", Sans},
    {"helvetica", Sans},
    {"microsoft sans serif", Sans},
    {"ms sans serif", Sans},
    {"ms shell dlg", Sans},
    {"ms shell dlg 2", Sans},
    {"segoe ui", Sans},
    {"tahoma", Sans},
    {"verdana", Sans},
    {"cambria", Serif},
    {"georgia", Serif},
    {"ms serif", Serif},
    {"times", Serif},
    {"times new roman", Serif},
    {"consolas", FixedPitch},
    {"courier", FixedPitch},
    {"courier new", FixedPitch},
    {"lucida console", FixedPitch},
    {"segoe ui symbol", Symbols},
    {"symbol", Symbols},
};

/// `name` without the blanks around it, its ASCII letters small.
std::string plain_name(std::string_view name) {
    const std::size_t first = name.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    std::string plain(name.substr(first, name.find_last_not_of(' ') - first + 1));
    std::transform(plain.begin(), plain.end(), plain.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return plain;
}

}  // namespace

FontKind font_kind(std::string_view name) {
    const auto* const found = std::find_if(
        std::begin(known_families), std::end(known_families),
        [plain = plain_name(name)](const auto& family) { return family.first == plain; });
    return found == std::end(known_families) ? Unknown : found->second;
}

}  // namespace solvanta
