#include "front_ends/common/voice.h"

#include <utility>

#include "front_ends/common/walk.h"

namespace solvanta {

News Voice::news(const PictureElement* focused) {
    News news;
    const auto before = std::exchange(names_, {});
    for (const PictureElement* place : places_of(container_)) {
        const std::string& name = names_[place] = place_name(*place);
        const auto known = before.find(place);
        news.others |= known == before.end();
        if (known != before.end() && known->second != name) news.renamed.push_back(place);
    }
    news.others |= names_.size() != before.size();
    if (std::exchange(focused_, focused) != focused) news.focused = focused;
    if (container_.SpokenChanges) news.said = container_.SpokenChanges();
    return news;
}

}  // namespace solvanta
