#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "front_ends/common/scale.h"
#include "platform/elements.h"

namespace solvanta {

/// What a window shows of a container's pictures and labels, so that only what has changed is
/// painted anew.
class CanvasLooks {
  public:
    /// Tells what a picture's file holds; null where that can't be shown.
    using ContentOf = std::function<const PictureContent*(const Picture&)>;

    /// Looks at the container again; the smallest rectangle around all that looks otherwise than at
    /// the last call. One rectangle: clipped to many, pictures are slower to paint than all
    /// between. `ringed` is the place with the ring around it, or null.
    PixelRect changes(const Container& container, const Scale& scale, const ContentOf& content_of,
                      const Element* ringed);

    /// Where the element of that place in the container is painted; empty when it is not.
    const PixelRect& area(std::size_t index) const { return looks_[index].area; }

    /// The ring's outer edge; empty where there is none.
    const PixelRect& ring() const { return ring_; }

  private:
    struct Look {
        PixelRect area;
        std::uint64_t picture = 0;   // what is shown of it, or the load that can't be
        std::optional<Label> label;  // a label, as it is
        bool operator==(const Look&) const = default;
    };

    static Look look(const Painted& item, const Scale& scale, const ContentOf& content_of);

    std::vector<Look> looks_;
    PixelRect ring_;
};

}  // namespace solvanta
