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
    std::string url;    ///< empty when the file can't be shown
    bool fine = false;  ///< two of its pixels make one
};

/// The pictures shown. A file is fetched from the page's server when a picture of it is first
/// shown, and for as long as the visit lasts what was fetched serves every later load: between two
/// refreshes there is no time for the server.
class Pictures {
  public:
    /// `changed` is called, as an event, when `image` would give another answer than before.
    explicit Pictures(Event changed) : changed_(std::move(changed)) {}

    /// The image of the file at `path`, for a `fine` screen that of its neighbour `Name@2x.ext`
    /// where there is one; null while a file is being fetched.
    Image* image(const std::string& path, bool fine);

    /// The browser can't show this one.
    void give_up(Image& image);

  private:
    void arrive(const std::string& file, bool fine, const std::optional<std::string>& bytes);

    Event changed_;
    std::map<std::string, std::optional<Image>> images_;  // by file
};

/// An element showing a picture, at its own size or as large as fits, or the placeholder of one
/// that can't be shown.
class PictureView {
  public:
    PictureView(const Node& parent, const char* class_name, Pictures& pictures);
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;

    const Node& node() const { return node_; }

    /// Shows `picture`; what was shown stays until the file is there.
    void show(const Picture& picture, bool fine);

  private:
    void display(Image* image);

    Pictures& pictures_;
    Node node_;
    Node picture_;
    Node placeholder_;
    Image* image_ = nullptr;
    std::pair<std::uint64_t, bool> shown_;  // the load, and whether for a fine screen
};

}  // namespace solvanta::web
