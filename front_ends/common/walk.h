#pragma once

#include <string>
#include <vector>

#include "platform/elements.h"

// The walk over a container's places by the arrow keys, the same for every window system.

namespace solvanta {

enum class Direction { Left, Right, Up, Down };

/// The name of `element` where the walk stops at it: at a place of the keyboard's, to be seen and
/// with a name. Empty elsewhere.
std::string place_name(const PictureElement& element);

inline bool is_place(const PictureElement& element) {
    return !place_name(element).empty();
}

/// The captions of a container's labels: what tells its text box to those who listen.
std::string words_of(const Container& container);

/// The places of `container` in its order.
std::vector<PictureElement*> places_of(const Container& container);

/// Whether the arrow keys have anywhere to go in `container`, at this moment or later.
bool has_key_stops(const Container& container);

/// The next place in that direction. A place beside or in line with `from` goes before a nearer
/// one that lies off. Null at the edge.
PictureElement* next_place(const Container& container, const PictureElement& from,
                           Direction direction);

/// The place whose middle is nearest to that of `from`, which may be hidden; null without places.
PictureElement* nearest_place(const Container& container, const PictureElement& from);

}  // namespace solvanta
