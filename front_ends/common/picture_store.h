#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "front_ends/common/picture_files.h"
#include "platform/elements.h"

namespace solvanta {

/// The images of the pictures on show, in a window system's own form. A file is read when its image
/// is first asked for, in the format its suffix names; the image is shared among the copies of one
/// load, never between two loads.
template <typename Image>
class PictureStore {
  public:
    /// Makes an image of a whole file's bytes; `fine` says that two of its pixels make one. Nothing
    /// when they hold no picture, or one with a side beyond `largest_picture_side`.
    using Decode = std::function<std::optional<Image>(std::string& bytes, const std::string& suffix,
                                                      bool fine)>;

    explicit PictureStore(Decode decode) : decode_(std::move(decode)) {}

    /// The image of `picture`; one for a `fine` screen, with more than one pixel to a point, is
    /// made of the neighbour `Name@2x.ext` where there is one. Null, with one line on standard
    /// error for each file name in a run, when the file is missing, damaged, cut short or absurdly
    /// large.
    Image* image(const Picture& picture, bool fine) {
        const auto [entry, is_new] = images_.try_emplace({picture.load_number(), fine});
        std::optional<Image>& image = entry->second;
        if (is_new && picture.load_number() != 0) {
            if (fine) image = read(fine_file(picture.path()), true);
            if (!image) image = read(picture.path(), false);
        }
        return image ? &*image : nullptr;
    }

    /// Drops the images of all loads but these.
    void keep_only(Loads loads) {
        std::sort(loads.begin(), loads.end());
        std::erase_if(images_, [&](const auto& entry) {
            return !std::binary_search(loads.begin(), loads.end(), entry.first.first);
        });
    }

  private:
    std::optional<Image> read(const std::string& path, bool fine) {
        std::optional<Image> image;
        read_picture(path, fine, bytes_, [&](std::string& bytes, const std::string& suffix) {
            image = decode_(bytes, suffix, fine);
            return image.has_value();
        });
        return image;
    }

    Decode decode_;
    std::string bytes_;  // of the file read last; its memory is used again
    std::map<std::pair<std::uint64_t, bool>, std::optional<Image>> images_;  // by load and `fine`
};

}  // namespace solvanta
