#include "front_ends/common/walk.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace solvanta {
namespace {

/// An element's extent along one axis.
struct Span {
    Twips begin;
    Twips end;

    Twips middle() const { return (begin + end) / 2; }
};

Span across_of(const PictureElement& element, bool horizontal) {
    const Twips begin = horizontal ? element.Top : element.Left;
    return {begin, begin + (horizontal ? element.Height : element.Width)};
}

Span along_of(const PictureElement& element, bool horizontal) {
    return across_of(element, !horizontal);
}

/// The price of a step from one place to another; below 0 when it does not lead in that direction.
/// A place in line costs its distance, and a little more the further its middle lies off the line.
/// Left and right also reach what is not in line, at a higher price: columns differ in height, and
/// from the end of a long one a step must not pass over a short one beside it.
Twips cost(const PictureElement& from, const PictureElement& to, Direction direction) {
    const bool horizontal = direction == Direction::Left || direction == Direction::Right;
    const bool backward = direction == Direction::Left || direction == Direction::Up;
    const Span start = along_of(from, horizontal);
    const Twips ahead = along_of(to, horizontal).middle() - start.middle();
    const Twips along = backward ? -ahead : ahead;
    const Span here = across_of(from, horizontal);
    const Span there = across_of(to, horizontal);
    const Twips gap = std::max(there.begin - here.end, here.begin - there.end);
    if (along <= 0) return -1;
    if (gap < 0) return along + std::abs(there.middle() - here.middle()) / 8;
    constexpr Twips off_line = 1000;
    const bool is_beside = along >= (start.end - start.begin) / 2;
    return horizontal && is_beside ? along + off_line + gap / 32 : -1;
}

/// The place that costs least; what costs less than nothing is left out.
template <typename Cost>
PictureElement* cheapest_place(const Container& container, const Cost& cost_of) {
    std::pair<Twips, PictureElement*> best{0, nullptr};
    for (PictureElement* place : places_of(container)) {
        const Twips price = cost_of(*place);
        if (price >= 0 && (!best.second || price < best.first)) best = {price, place};
    }
    return best.second;
}

}  // namespace

std::string place_name(const PictureElement& element) {
    return element.Visible && element.KeyStop ? element.spoken_name() : std::string();
}

std::string words_of(const Container& container) {
    std::string words;
    for (const Painted& item : container.canvas) {
        if (auto* const* label = std::get_if<Label*>(&item))
            words += (words.empty() ? "" : " ") + (*label)->Caption;
    }
    return words;
}

std::vector<PictureElement*> places_of(const Container& container) {
    std::vector<PictureElement*> places;
    for (const Painted& item : container.canvas) {
        auto* const* element = std::get_if<PictureElement*>(&item);
        if (element != nullptr && is_place(**element)) places.push_back(*element);
    }
    return places;
}

bool has_key_stops(const Container& container) {
    return std::any_of(container.canvas.begin(), container.canvas.end(), [](const Painted& item) {
        auto* const* element = std::get_if<PictureElement*>(&item);
        return element != nullptr && (*element)->KeyStop;
    });
}

PictureElement* next_place(const Container& container, const PictureElement& from,
                           Direction direction) {
    return cheapest_place(container, [&](const PictureElement& to) {
        return &to == &from ? -1 : cost(from, to, direction);
    });
}

PictureElement* nearest_place(const Container& container, const PictureElement& from) {
    return cheapest_place(container, [&](const PictureElement& to) {
        const auto distance = [&](bool horizontal) {
            return std::abs(along_of(to, horizontal).middle() -
                            along_of(from, horizontal).middle());
        };
        return distance(true) + distance(false);
    });
}

}  // namespace solvanta
