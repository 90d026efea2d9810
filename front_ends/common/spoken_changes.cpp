#include "front_ends/common/spoken_changes.h"

#include <utility>

#include "front_ends/common/walk.h"

namespace solvanta {

std::string SpokenChanges::since_last_time(const Container& container) {
    constexpr int most_changes = 4;
    Names names;
    std::string text;
    int changes = 0;
    for (const Painted& item : container.canvas) {
        auto* const* element = std::get_if<PictureElement*>(&item);
        const std::string name = element ? place_name(**element) : std::string();
        if (name.empty()) continue;
        names[*element] = name;
        const auto before = names_.find(*element);
        if (before != names_.end() && before->second == name) continue;
        text += (changes++ > 0 ? ". " : "") + name;
    }
    names_ = std::move(names);
    return changes > most_changes ? std::string() : text;
}

}  // namespace solvanta
