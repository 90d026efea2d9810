#include "front_ends/web/pictures.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "front_ends/common/picture_bytes.h"
#include "front_ends/common/picture_files.h"

namespace solvanta::web {
namespace {

struct Format {
    std::string_view suffix;
    std::string_view start;  // of every file of the format
    const char* type;
};

constexpr Format formats[] = {
    {"bmp", "BM", "image/bmp"}, {"gif", "GIF8", "image/gif"}, {"jpg", "\xFF\xD8", "image/jpeg"}};

/// The address of the picture that `bytes` hold in the format the suffix names; empty when they
/// don't.
std::string url_of(const std::string& bytes, const std::string& suffix) {
    const auto* format = std::find_if(std::begin(formats), std::end(formats),
                                      [&](const Format& one) { return one.suffix == suffix; });
    const bool shown = format != std::end(formats) && bytes.size() <= largest_picture_file &&
                       bytes.starts_with(format->start) && is_whole_picture(bytes, suffix);
    return shown ? taken(page_picture_url(bytes.data(), bytes.size(), format->type)) : "";
}

}  // namespace

Image* Pictures::image(const std::string& path, bool fine) {
    const std::string file = fine ? fine_file(path) : path;
    const auto [entry, is_new] = images_.try_emplace(file);
    if (is_new) {
        fetch(file, [=, this](const PageEvent& event) { arrive(file, fine, event.bytes); });
    }
    std::optional<Image>& image = entry->second;
    if (fine && image && image->url.empty()) return this->image(path, false);
    return image ? &*image : nullptr;
}

void Pictures::arrive(const std::string& file, bool fine, const std::optional<std::string>& bytes) {
    const Image image{file, bytes ? url_of(*bytes, suffix_of(file)) : "", fine};
    if (image.url.empty() && (bytes || !fine)) report_picture(file, !bytes);
    images_[file] = image;
    changed_();
}

void Pictures::give_up(Image& image) {
    image.url.clear();
    report_picture(image.file, false);
    changed_();
}

PictureView::PictureView(const Node& parent, const char* class_name, Pictures& pictures)
    : pictures_(pictures),
      node_(parent, "div", class_name),
      picture_(node_, "img"),
      placeholder_(node_, "span", "placeholder") {
    for (const auto& [name, value] :
         {std::pair{"alt", ""}, {"draggable", "false"}, {"decoding", "sync"}}) {
        picture_.attribute(name, value);
    }
    picture_.listen("error", [this](const PageEvent&) {
        if (!image_) return;
        shown_ = {};
        pictures_.give_up(*image_);
    });
    display(nullptr);
}

void PictureView::show(const Picture& picture, bool fine) {
    const std::pair wanted{picture.load_number(), fine};
    if (wanted == shown_) return;
    Image* const image = wanted.first == 0 ? nullptr : pictures_.image(picture.path(), fine);
    if (wanted.first != 0 && !image) return;
    shown_ = wanted;
    display(image);
}

void PictureView::display(Image* image) {
    image_ = image;
    const bool readable = image != nullptr && !image->url.empty();
    picture_.attribute_if("hidden", !readable);
    placeholder_.attribute_if("hidden", image == nullptr || readable);
    if (readable) {
        picture_.attribute("srcset", image->url + (image->fine ? " 2x" : " 1x"));
    } else if (image) {
        placeholder_.text(file_name(image->file));
    }
}

}  // namespace solvanta::web
