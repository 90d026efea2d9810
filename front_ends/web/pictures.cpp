#include "front_ends/web/pictures.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "front_ends/web/border.h"
#include "front_ends/web/fetching.h"
#include "front_ends/web/trouble.h"
#include "front_ends/common/picture_bytes.h"

namespace solvanta::web {
namespace {

constexpr std::size_t largest_file = std::size_t{65} << 20;
constexpr int largest_side = 4096;

struct Format {
    std::string_view suffix;
    std::string_view start;  // of every file of the format
    const char* type;
};

constexpr Format formats[] = {
    {"bmp", "BM", "image/bmp"}, {"gif", "GIF8", "image/gif"}, {"jpg", "\xFF\xD8", "image/jpeg"}};

std::string file_name(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string suffix_of(const std::string& path) {
    const std::string name = file_name(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
}

std::string fine_path(const std::string& path) {
    const std::size_t dot = path.size() - suffix_of(path).size() - 1;
    return path.substr(0, dot) + "@2x" + path.substr(dot);
}

/// A bitmap's side as its header counts it; the other formats have none beyond 16 bits.
std::int64_t bitmap_side(const std::string& bytes, std::size_t place) {
    std::uint32_t side = 0;
    for (std::size_t i = 0; i < 4 && place + i < bytes.size(); ++i)
        side |= std::uint32_t{static_cast<unsigned char>(bytes[place + i])} << (8 * i);
    return std::abs(std::int64_t{static_cast<std::int32_t>(side)});
}

/// The type of the picture that `bytes` hold in the format the suffix names; null when they don't.
const char* type_of(const std::string& bytes, const std::string& suffix) {
    const auto* format = std::find_if(std::begin(formats), std::end(formats),
                                      [&](const Format& one) { return one.suffix == suffix; });
    if (format == std::end(formats) || bytes.size() > largest_file ||
        !bytes.starts_with(format->start) || !is_whole_picture(bytes, suffix)) {
        return nullptr;
    }
    const bool absurd =
        suffix == "bmp" && std::max(bitmap_side(bytes, 18), bitmap_side(bytes, 22)) > largest_side;
    return absurd ? nullptr : format->type;
}

}  // namespace

Image::~Image() {
    if (!url.empty()) page_drop_url(url.c_str());
}

void Pictures::image(const Picture& picture, bool fine, Ready ready) {
    for (const PictureView* view : views_) {
        if (const auto shown = view->shown(picture.load_number(), fine)) return ready(shown);
    }
    const std::string& path = picture.path();
    const auto [entry, is_new] = files_.try_emplace({path, fine});
    if (entry->second.image) return ready(entry->second.image);
    entry->second.waiting.push_back(std::move(ready));
    if (is_new) fetch_file(path, fine);
}

void Pictures::forget(const std::string& path) {
    files_.erase({path, false});
    files_.erase({path, true});
}

void Pictures::fetch_file(const std::string& path, bool fine) {
    const bool has_suffix = !suffix_of(path).empty();
    fetch(fine && has_suffix ? fine_path(path) : path,
          [this, path, fine](const std::string* bytes) { arrive(path, fine, bytes); });
}

void Pictures::arrive(const std::string& path, bool fine, const std::string* bytes) {
    const char* type = bytes ? type_of(*bytes, suffix_of(path)) : nullptr;
    if (!type && fine) {
        return image(Picture::load(path), false,
                     [this, path](const auto& plain) { hand_over(path, true, plain); });
    }
    if (!type) report_once(file_name(path), bytes ? "Bild nicht lesbar" : "Bild nicht gefunden");
    const auto image = std::make_shared<Image>(
        type ? taken(page_picture_url(bytes->data(), bytes->size(), type)) : "");
    image->fine = fine;
    hand_over(path, fine, image);
}

void Pictures::hand_over(const std::string& path, bool fine, const std::shared_ptr<Image>& image) {
    const auto entry = files_.find({path, fine});
    if (entry == files_.end()) return;
    entry->second.image = image;
    for (const Ready& ready : std::exchange(entry->second.waiting, {}))
        ready(image);
}

PictureView::PictureView(const Node& parent, Pictures& pictures)
    : pictures_(pictures),
      picture_(parent, "img"),
      placeholder_(parent, "span", "placeholder"),
      self_(std::make_shared<PictureView*>(this)) {
    pictures_.add(*this);
    picture_.attribute("alt", "");
    picture_.attribute("draggable", "false");
    picture_.attribute("decoding", "sync");
    picture_.attribute("hidden", "");
    placeholder_.attribute("hidden", "");
    picture_.listen(EventKind::Failure, [this](const PageEvent&) {
        report_once(name_, "Bild nicht lesbar");
        display_placeholder();
    });
}

PictureView::~PictureView() {
    pictures_.remove(*this);
}

std::shared_ptr<Image> PictureView::shown(std::uint64_t load_number, bool fine) const {
    return shown_load_ == load_number && fine_ == fine ? shown_ : nullptr;
}

void PictureView::show(const Picture& picture, bool fine) {
    if (picture.load_number() == load_number_ && fine == fine_) return;
    load_number_ = picture.load_number();
    fine_ = fine;
    name_ = file_name(picture.path());
    if (load_number_ == 0) return display(nullptr);
    pictures_.image(picture, fine,
                    [self = std::weak_ptr(self_), load = load_number_](const auto& image) {
                        const auto view = self.lock();
                        if (view && (*view)->load_number_ == load) (*view)->display(image);
                    });
}

void PictureView::display(const std::shared_ptr<Image>& image) {
    if (image && image->url.empty()) return display_placeholder();
    shown_load_ = load_number_;
    if (image == shown_) return;
    shown_ = image;
    placeholder_.attribute("hidden", "");
    picture_.attribute_if(!image, "hidden");
    if (image) picture_.attribute("srcset", image->url + (image->fine ? " 2x" : " 1x"));
}

void PictureView::display_placeholder() {
    shown_.reset();
    picture_.attribute("hidden", "");
    placeholder_.text(name_);
    placeholder_.remove_attribute("hidden");
}

bool is_fine(double scale) {
    return page_ratio() * scale > 1.001;
}

}  // namespace solvanta::web
