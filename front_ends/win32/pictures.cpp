#include "front_ends/win32/pictures.h"

#include <algorithm>

#include "front_ends/win32/scale.h"
#include "front_ends/win32/trouble.h"

namespace solvanta::win32 {
namespace {

constexpr int plain_dpi = USER_DEFAULT_SCREEN_DPI;

std::string fine_file(const std::string& path) {
    const std::size_t dot = path.find_last_of(R"(./\)");
    const bool has_suffix = dot != std::string::npos && path[dot] == '.';
    return has_suffix ? path.substr(0, dot) + "@2x" + path.substr(dot) : path + "@2x";
}

bool equal(SIZE one, SIZE other) {
    return one.cx == other.cx && one.cy == other.cy;
}

/// The largest size, from 11 pixels down to 7, in which one line of `text` fits into `place`.
HFONT fitting_font(HDC dc, const std::string& text, SIZE place, Fonts& fonts, int dpi) {
    int pixels = 11;
    for (; pixels > 7; --pixels) {
        const SIZE size = text_size(dc, text, fonts.standard(pixels, dpi));
        if (size.cx <= place.cx && size.cy <= place.cy) break;
    }
    return fonts.standard(pixels, dpi);
}

}  // namespace

Image::Image(Bitmap source, bool fine, int dpi) : source_(std::move(source)) {
    if (source_.empty()) return;
    const int source_dpi = fine ? 2 * plain_dpi : plain_dpi;
    size_ = {std::max(1, MulDiv(source_.size().cx, dpi, source_dpi)),
             std::max(1, MulDiv(source_.size().cy, dpi, source_dpi))};
    opaque_ = source_.is_opaque();
}

const Bitmap& Image::in_size(SIZE size) {
    if (equal(size, source_.size())) return source_;
    if (!equal(size, scaled_.size())) scaled_ = source_.scaled_to(size);
    return scaled_;
}

void Image::paint(HDC dc, POINT corner, SIZE size, int lines) {
    const Bitmap& bitmap = in_size(size);
    if (bitmap.empty()) return;
    const MemoryDc memory(CreateCompatibleDC(dc));
    const Selection selected(memory.get(), bitmap.handle());
    const int height = std::min<int>(lines, size.cy);
    if (opaque_) {
        BitBlt(dc, corner.x, corner.y, size.cx, height, memory.get(), 0, 0, SRCCOPY);
    } else {
        const BLENDFUNCTION by_alpha{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        GdiAlphaBlend(dc, corner.x, corner.y, size.cx, height, memory.get(), 0, 0, size.cx, height,
                      by_alpha);
    }
}

Image& Pictures::image(const Picture& picture, int dpi) {
    const auto [entry, is_new] = images_.try_emplace({picture.load_number(), dpi});
    if (is_new && picture.load_number() != 0) entry->second = read(picture.path(), dpi);
    return entry->second;
}

Image Pictures::read(const std::string& path, int dpi) {
    if (dpi > plain_dpi) {
        Bitmap fine = reader_.read(fine_file(path), true);
        if (!fine.empty()) return {std::move(fine), true, dpi};
    }
    return {reader_.read(path, false), false, dpi};
}

void Pictures::keep_only(Loads loads) {
    std::sort(loads.begin(), loads.end());
    std::erase_if(images_, [&](const auto& entry) {
        return !std::binary_search(loads.begin(), loads.end(), entry.first.first);
    });
}

void paint_placeholder(HDC dc, const RECT& place, const Picture& picture, Fonts& fonts, int dpi) {
    fill(dc, place, RGB(0x50, 0x50, 0x50));
    RECT inside = place;
    InflateRect(&inside, -scaled(1, dpi), -scaled(1, dpi));
    fill(dc, inside, RGB(0xF6, 0xF2, 0xE4));
    const std::string name = file_name(picture.path());
    draw_text(dc, name, inside, DT_CENTER | DT_TOP | DT_SINGLELINE | DT_END_ELLIPSIS,
              fitting_font(dc, name, size_of(inside), fonts, dpi), RGB(0, 0, 0));
}

}  // namespace solvanta::win32
