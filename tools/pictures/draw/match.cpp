#include "match.h"

#include <algorithm>
#include <exception>

#include "files.h"

namespace solvanta::pictures {

namespace {

// A renderer's other release shades edge pixels, so many may be a little off and hardly any
// more than that. A recoloured area is off in many pixels, a moved edge is far off in some.
constexpr double shaded_share_allowed = 0.015;
constexpr double changed_share_allowed = 0.0005;
constexpr double changed_always_allowed = 2;

std::string check_file(const PictureFile& file, PartLibrary& library,
                       const std::filesystem::path& shipped) {
    const auto drawn = decode(file.name, render(file, library));
    try {
        return difference_text(drawn, decode(file.name, read_file(shipped / file.name)));
    } catch (const std::exception& trouble) {
        return trouble.what();
    }
}

}  // namespace

std::string difference_text(const std::vector<Image>& drawn, const std::vector<Image>& shipped) {
    if (drawn.size() != shipped.size()) {
        return "holds another number of pictures";
    }
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        const Difference difference = compare(drawn[i], shipped[i]);
        if (!difference.same_size) {
            return "has another size";
        }
        const auto pixels = static_cast<double>(drawn[i].pixels.size());
        const auto shaded = static_cast<double>(difference.shaded);
        const auto changed = static_cast<double>(difference.changed);
        if (shaded > shaded_share_allowed * pixels ||
            changed > std::max(changed_always_allowed, changed_share_allowed * pixels)) {
            return std::to_string(difference.shaded) + " pixels differ, " +
                   std::to_string(difference.changed) + " of them much";
        }
    }
    return "";
}

std::vector<std::string> mismatches(PartLibrary& library, const std::filesystem::path& shipped) {
    std::vector<std::string> lines;
    for (const PictureFile& file : catalogue()) {
        const std::string text = check_file(file, library, shipped);
        if (!text.empty()) {
            lines.push_back(file.name + ": " + text);
        }
    }
    return lines;
}

}  // namespace solvanta::pictures
