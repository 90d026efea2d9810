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

}  // namespace solvanta
