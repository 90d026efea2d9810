#include "front_ends/web/pictures.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "front_ends/common/look.h"
#include "front_ends/common/picture_bytes.h"
#include "front_ends/common/picture_files.h"

namespace solvanta::web {
namespace {

struct Format {
    std::string_view suffix;
    std::string_view start;  // of every file of the format
    const char* type;
};

constexpr Format formats[] = {{"bmp", "BM", "image/bmp"},
                              {"gif", "GIF8", "image/gif"},
                              {"jpg", "\xFF\xD8", "image/jpeg"},
                              {"png", "\x89PNG", "image/png"}};

/// The address of the picture that `bytes` hold in the format the suffix names, or in the one that
/// the build packs all pictures in; empty when they don't.
std::string url_of(const std::string& bytes, const std::string& suffix) {
    if (bytes.starts_with("RIFF")) {
        return taken(page_picture_url(bytes.data(), bytes.size(), "image/webp"));
    }
    const auto* format = std::find_if(std::begin(formats), std::end(formats),
                                      [&](const Format& one) { return one.suffix == suffix; });
    const bool shown = format != std::end(formats) && bytes.size() <= largest_picture_file &&
                       bytes.starts_with(format->start) && is_whole_picture(bytes, suffix);
    return shown ? taken(page_picture_url(bytes.data(), bytes.size(), format->type)) : "";
}

std::string file_of(const Picture& picture, int times) {
    return times == 1 ? picture.path() : larger_file(picture.path(), times);
}

}  // namespace

Image& Pictures::ask(const Picture& picture, int times) {
    const std::string file = file_of(picture, times);
    Image& image = images_[file];
    image.file = file;
    image.times = times;
    if (image.asked_by >= picture.load_number()) return image;
    image.asked_by = picture.load_number();
    if (image.url.empty() && !std::exchange(image.coming, true)) {
        fetch(file, [&image, this](const PageEvent& event) { arrive(image, event.bytes); });
    }
    return image;
}

/// The largest image of the picture that there is.
const Image* Pictures::stand_in(const Picture& picture) const {
    for (int times = largest_prepared; times > 0; --times) {
        const auto found = images_.find(file_of(picture, times));
        if (found != images_.end() && !found->second.url.empty()) return &found->second;
    }
    return nullptr;
}

/// One larger than twice its size comes late: until then there is one that does not.
const Image& Pictures::image(const Picture& picture, int times) {
    const Image& wanted = ask(picture, times);
    if (!wanted.url.empty()) return wanted;
    if (const Image* const other = stand_in(picture)) return *other;
    if (times > 2) return image(picture, 2);
    return wanted.coming || times == 1 ? wanted : image(picture, 1);
}

void Pictures::arrive(Image& image, const std::optional<std::string>& bytes) {
    image.coming = false;
    if (bytes) image.url = url_of(*bytes, suffix_of(image.file));
    if (image.url.empty() && (bytes || image.times == 1)) report_picture(image.file, !bytes);
    changed_();
}

void Pictures::give_up(const Image& image) {
    images_.at(image.file).url.clear();
    report_picture(image.file, false);
    changed_();
}

PictureView::PictureView(const Node& parent, const char* class_name, Pictures& pictures)
    : pictures_(pictures), node_(parent, "div", class_name) {}

void PictureView::make() {
    picture_ = Node(node_, "img");
    placeholder_ = Node(node_, "span", "placeholder");
    for (const auto& [name, value] :
         {std::pair{"alt", ""}, {"draggable", "false"}, {"decoding", "sync"}}) {
        picture_.attribute(name, value);
    }
    picture_.listen("error", [this](const PageEvent&) {
        if (image_ && image_->url == url_ && !url_.empty()) pictures_.give_up(*image_);
    });
    picture_.listen("load", [this](const PageEvent&) {
        own_ = PixelSize{static_cast<int>(picture_.number("naturalWidth")),
                         static_cast<int>(picture_.number("naturalHeight"))};
        if (resize_) resize_();
    });
    display(nullptr);
}

void PictureView::own_size(const PictureElement& element, const Scale& scale, double ratio) {
    resize_ = [this, &element, scale, ratio] {
        const PixelSize size = painted_area(element, own_ ? &*own_ : nullptr, scale).whole;
        picture_.style("--width", size.width / ratio);
        picture_.style("--height", size.height / ratio);
    };
    resize_();
}

void PictureView::show(const Picture& picture, int times) {
    if (!std::exchange(has_shown_, true)) make();
    const bool empty = picture.load_number() == 0;
    const Image* const image = empty ? nullptr : &pictures_.image(picture, times);
    if (image != image_ || (image && image->url != url_)) display(image);
}

void PictureView::display(const Image* image) {
    image_ = image;
    url_ = image ? image->url : "";
    const bool readable = !url_.empty();
    picture_.attribute_if("hidden", !readable);
    placeholder_.attribute_if("hidden", image == nullptr || readable);
    if (image && readable) {
        picture_.attribute("srcset", image->url + ' ' + std::to_string(image->times) + 'x');
    } else if (image) {
        placeholder_.text(file_name(image->file));
    }
}

}  // namespace solvanta::web
