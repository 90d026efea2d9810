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
                                    const ContentOf& content_of) {
    if (auto* const* label = std::get_if<Label*>(&item)) {
        return (*label)->Visible ? Look{scale.place_of(**label), 0, **label} : Look{};
    }
    const PictureElement& element = *std::get<PictureElement*>(item);
    const std::uint64_t load = element.Picture.load_number();
    if (!element.Visible || load == 0) return {};
    const PictureContent* const content = content_of(element.Picture);
    const PixelRect area = painted_area(element, content ? &content->size : nullptr, scale).shown;
    return {area, content ? content->number : load, {}};
}

PixelRect CanvasLooks::changes(const Container& container, const Scale& scale,
                               const ContentOf& content_of, const Element* ringed) {
    const PixelRect ring = ringed ? ring_around(*ringed, scale) : PixelRect();
    PixelRect changed = ring == ring_ ? PixelRect() : united(ring_, ring);
    ring_ = ring;
    looks_.resize(container.canvas.size());
    auto before = looks_.begin();
    for (const Painted& item : container.canvas) {
        Look now = look(item, scale, content_of);
        if (now != *before) {
            changed = united(changed, united(before->area, now.area));
            *before = std::move(now);
        }
        ++before;
    }
    return changed;
}

}  // namespace solvanta
