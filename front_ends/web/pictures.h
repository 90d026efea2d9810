#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "front_ends/web/node.h"

namespace solvanta::web {

/// A picture file as the browser holds it.
struct Image {
    std::string file;
    int times = 1;               ///< so many of its pixels across and down make one
    std::string url;             ///< empty when it can't be shown, or not yet
    bool coming = false;         ///< being fetched
    std::uint64_t asked_by = 0;  ///< the latest load that asked for it
};

/// The pictures shown. A file is fetched from the page's server when a picture of it is first
/// shown, and for as long as the visit lasts what was fetched serves every later load: between two
/// refreshes there is no time for the server. One that could not be shown is fetched again for a
/// later load.
class Pictures {
  public:
    /// `changed` is called, as an event, when `image` would give another answer than before.
    explicit Pictures(Event changed) : changed_(std::move(changed)) {}

    /// The image of the picture prepared at so many times its size, 1 to `largest_prepared`;
    /// another one that there is while that is coming, and for good when it does not come.
    const Image& image(const Picture& picture, int times);

    /// The browser can't show this one.
    void give_up(const Image& image);

  private:
    Image& ask(const Picture& picture, int times);
    const Image* stand_in(const Picture& picture) const;
    void arrive(Image& image, const std::optional<std::string>& bytes);

    Event changed_;
    std::map<std::string, Image> images_;  // by file
};

/// An element showing a picture, at its own size or as large as fits, or the placeholder of one
/// that can't be shown, or not yet.
class PictureView {
  public:
    PictureView(const Node& parent, const char* class_name, Pictures& pictures);
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;

    const Node& node() const { return node_; }

    /// Whether it has shown anything yet. Before that it is an empty element: most are never seen.
    bool has_shown() const { return has_shown_; }

    void show(const Picture& picture, int times);

    /// Gives the picture its own size, by whole pixels of a screen that has `ratio` to one of the
    /// page and the container this scale there. Without this it is as large as fits.
    void own_size(const PictureElement& element, const Scale& scale, double ratio);

  private:
    void make();
    void display(const Image* image);

    Pictures& pictures_;
    Node node_;
    Node picture_;
    Node placeholder_;
    bool has_shown_ = false;
    const Image* image_ = nullptr;
    std::string url_;               // that is shown of it
    std::optional<PixelSize> own_;  // of the latest that has come
    Event resize_;
};

}  // namespace solvanta::web
