#include "platform/elements.h"

#include <utility>

namespace solvanta {

Picture Picture::load(std::string path) {
    static std::uint64_t loads = 0;
    Picture picture;
    if (!path.empty()) {
        picture.path_ = std::move(path);
        picture.load_number_ = ++loads;
    }
    return picture;
}

void collect_loads(const Container& container, Loads& loads) {
    for (const Painted& item : container.canvas) {
        if (auto* const* element = std::get_if<PictureElement*>(&item)) {
            loads.push_back((*element)->Picture.load_number());
        }
    }
    for (const Control& item : container.controls) {
        if (auto* const* box = std::get_if<PictureBox*>(&item)) {
            loads.push_back((*box)->Picture.load_number());
        } else if (auto* const* frame = std::get_if<Frame*>(&item)) {
            collect_loads(**frame, loads);
        }
    }
}

}  // namespace solvanta
