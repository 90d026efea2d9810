#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "front_ends/web/node.h"
#include "platform/elements.h"

namespace solvanta::web {

/// A picture as the browser holds it. `url` is empty when the file can't be shown.
struct Image {
    explicit Image(std::string address) : url(std::move(address)) {}
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;
    ~Image();

    std::string url;
    bool fine = false;  ///< from the file for fine screens: two of its pixels make one
};

class PictureView;

/// The pictures on show. A file is fetched from the page's server when a picture of it is first
/// shown, and for as long as the visit lasts what was fetched serves every later load: between two
/// refreshes there is no time for the server.
class Pictures {
  public:
    using Ready = std::function<void(const std::shared_ptr<Image>&)>;

    /// Hands the image of `picture` to `ready`, at once where it is known, else when it has been
    /// fetched. `fine` asks for the file for fine screens; without it the plain one serves.
    void image(const Picture& picture, bool fine, Ready ready);

    /// Has the next load of this file fetch it anew. What is on show stays.
    void forget(const std::string& path);

    void add(const PictureView& view) { views_.insert(&view); }
    void remove(const PictureView& view) { views_.erase(&view); }

  private:
    struct File {
        std::shared_ptr<Image> image;
        std::vector<Ready> waiting;
    };

    void fetch_file(const std::string& path, bool fine);
    void arrive(const std::string& path, bool fine, const std::string* bytes);
    void hand_over(const std::string& path, bool fine, const std::shared_ptr<Image>& image);

    std::map<std::pair<std::string, bool>, File> files_;
    std::set<const PictureView*> views_;
};

/// An element showing a picture, at its own size or as large as fits, or the placeholder of one
/// that can't be shown.
class PictureView {
  public:
    PictureView(const Node& parent, Pictures& pictures);
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;
    ~PictureView();

    /// Shows `picture`; what was shown stays until the file is there.
    void show(const Picture& picture, bool fine);

    /// What it shows of this very load; null when that is something else.
    std::shared_ptr<Image> shown(std::uint64_t load_number, bool fine) const;

  private:
    void display(const std::shared_ptr<Image>& image);
    void display_placeholder();

    Pictures& pictures_;
    Node picture_;
    Node placeholder_;
    std::string name_;
    std::shared_ptr<Image> shown_;
    std::uint64_t load_number_ = 0;
    std::uint64_t shown_load_ = 0;  // behind `load_number_` while its file is being fetched
    bool fine_ = false;
    std::shared_ptr<PictureView*> self_;  // for images that arrive when the view has gone
};

/// Whether the screen shows more pixels than a picture's plain file has at this scale.
bool is_fine(double scale);

}  // namespace solvanta::web
