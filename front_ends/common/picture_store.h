#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "front_ends/common/picture_files.h"
#include "front_ends/common/resample.h"
#include "front_ends/common/scale.h"
#include "platform/elements.h"

namespace solvanta {

/// The images of the pictures on show, in a window system's own form. A file is read when a load of
/// it is first asked for, in the format its suffix names. What it holds is decoded once for as long
/// as it is on show, however often it is loaded meanwhile; a file that holds something else by then
/// is another picture.
///
/// An `Image` can be made in another size, without its pixels, and has a `grid` of them, which is
/// empty where there was no memory for them.
template <typename Image>
class PictureStore {
  public:
    /// Makes an image of a whole file's bytes. Nothing when they hold no picture, or one with a
    /// side beyond `largest_picture_side`.
    using Decode =
        std::function<std::optional<Image>(std::string& bytes, const std::string& suffix)>;

    explicit PictureStore(Decode decode) : decode_(std::move(decode)) {}

    /// What the picture's file held when this load of it was first asked for. Null, with one line
    /// on standard error for each file name in a run, when the file is missing, damaged, cut short
    /// or absurdly large.
    const PictureContent* content(const Picture& picture) { return shown_of(picture); }

    /// The image of a picture that can be shown, in so many pixels of the screen: as its file has
    /// it or, beyond that, the neighbour prepared for the next whole multiple, if that shows the
    /// same; scaled only where none has this size. While `quick` it is any image that there is.
    Image& image(const Picture& picture, PixelSize size) {
        Shown& shown = *shown_of(picture);
        const auto found = shown.images.find(size);
        if (found != shown.images.end()) return found->second;
        if (quick_) return shown.images.rbegin()->second;
        return shown.images.try_emplace(size, made(shown, size)).first->second;
    }

    /// Whether images of any size will do, since the size changes all the time. When it rests the
    /// images made for others are dropped.
    void quick(bool quick) {
        if (std::exchange(quick_, quick) == quick || quick) return;
        for (const auto& [number, shown] : loads_) {
            if (shown)
                std::erase_if(shown->images, [own = shown->size](const auto& image) {
                    return image.first != own;
                });
        }
    }

    /// Drops the images of all loads but these.
    void keep_only(Loads loads) {
        std::sort(loads.begin(), loads.end());
        std::erase_if(loads_, [&](const auto& entry) {
            return !std::binary_search(loads.begin(), loads.end(), entry.first);
        });
        std::erase_if(latest_, [](const auto& entry) { return entry.second.expired(); });
    }

  private:
    struct Shown : PictureContent {
        std::string path;
        std::string bytes;
        std::map<PixelSize, Image> images;  // always one of its own size among them
    };

    Shown* shown_of(const Picture& picture) {
        const auto [entry, is_new] = loads_.try_emplace(picture.load_number());
        if (is_new && picture.load_number() != 0) entry->second = read(picture);
        return entry->second.get();
    }

    std::shared_ptr<Shown> read(const Picture& picture) {
        const std::string& path = picture.path();
        if (!read_picture(path, false, bytes_)) return nullptr;
        std::weak_ptr<Shown>& latest = latest_[path];
        if (auto known = latest.lock(); known && known->bytes == bytes_) return known;
        std::optional<Image> image = decode_(bytes_, suffix_of(path));
        if (!image) {
            report_picture(path, false);
            return nullptr;
        }
        const PixelGrid grid = image->grid();
        const PictureContent content{{grid.width, grid.height}, picture.load_number()};
        auto shown = std::make_shared<Shown>(Shown{content, path, bytes_, {}});
        shown->images.try_emplace(shown->size, std::move(*image));
        latest = shown;
        return shown;
    }

    Image made(Shown& shown, PixelSize size) {
        Image& own = shown.images.at(shown.size);
        std::optional<Image> larger = prepared(shown, own.grid(), size);
        Image& from = larger ? *larger : own;
        const PixelGrid grid = from.grid();
        if (larger && PixelSize{grid.width, grid.height} == size) return std::move(*larger);
        Image result(from, size);
        if (result.grid().pixels) resample(grid, result.grid());
        return result;
    }

    /// The neighbour of the next whole multiple of the picture's own size, of a smaller one where
    /// that is missing, or none.
    std::optional<Image> prepared(const Shown& shown, const PixelGrid& own, PixelSize size) {
        const double wanted = std::ceil(std::max(static_cast<double>(size.width) / own.width,
                                                 static_cast<double>(size.height) / own.height));
        for (int times = std::min(largest_prepared, static_cast<int>(wanted)); times > 1; --times) {
            const std::string path = larger_file(shown.path, times);
            if (!read_picture(path, true, bytes_)) continue;
            std::optional<Image> image = decode_(bytes_, suffix_of(path));
            if (!image) report_picture(path, false);
            if (image && shows_the_same(own, image->grid(), times)) return image;
        }
        return std::nullopt;
    }

    Decode decode_;
    bool quick_ = false;
    std::string bytes_;  // of the file read last; its memory is used again
    std::map<std::uint64_t, std::shared_ptr<Shown>> loads_;
    std::map<std::string, std::weak_ptr<Shown>> latest_;  // by path
};

}  // namespace solvanta
