#include "front_ends/common/canvas_looks.h"

#include <algorithm>
#include <utility>

#include "front_ends/common/look.h"

namespace solvanta {
namespace {

PixelRect united(const PixelRect& one, const PixelRect& other) {
    if (one.empty()) return other;
    if (other.empty()) return one;
    return {std::min(one.left, other.left), std::min(one.top, other.top),
            std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
}

}  // namespace

CanvasLooks::Look CanvasLooks::look(const Painted& item, const Scale& scale,
                                    const PictureArea& area_of) {
    if (auto* const* label = std::get_if<Label*>(&item)) {
        return (*label)->Visible ? Look{scale.place_of(**label), 0, **label} : Look{};
    }
    const PictureElement& element = *std::get<PictureElement*>(item);
    const std::uint64_t load = element.Picture.load_number();
    return element.Visible && load != 0 ? Look{area_of(element), load, {}} : Look{};
}

PixelRect CanvasLooks::changes(const Container& container, const Scale& scale,
                               const PictureArea& area_of, const Element* ringed) {
    const PixelRect ring = ringed ? ring_around(*ringed, scale) : PixelRect();
    PixelRect changed = ring == ring_ ? PixelRect() : united(ring_, ring);
    ring_ = ring;
    looks_.resize(container.canvas.size());
    auto before = looks_.begin();
    for (const Painted& item : container.canvas) {
        Look now = look(item, scale, area_of);
        if (now != *before) {
            changed = united(changed, united(before->area, now.area));
            *before = std::move(now);
        }
        ++before;
    }
    return changed;
}

}  // namespace solvanta
