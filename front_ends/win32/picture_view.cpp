#include "front_ends/win32/picture_view.h"

#include "front_ends/win32/scale.h"

namespace solvanta::win32 {
namespace {

/// The largest size with the proportions of `picture` that fits into `room`.
SIZE fitted(SIZE picture, SIZE room) {
    const auto width = static_cast<LONG>(MulDiv(room.cy, picture.cx, picture.cy));
    if (width <= room.cx) return {width, room.cy};
    return {room.cx, MulDiv(room.cx, picture.cy, picture.cx)};
}

}  // namespace

PictureView::PictureView(const PictureBox& box, WindowParts& parts, HWND parent)
    : box_(box), parts_(parts) {
    create(plain_class(), WS_CHILD | WS_CLIPSIBLINGS, 0, parent);
}

void PictureView::sync() {
    sync_place(handle(), box_, parts_.dpi);
    InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<LRESULT> PictureView::answer(const Message& message) {
    switch (message.id) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint_buffered(handle(), [this](HDC dc) { paint(dc); });
            return 0;
        case WM_PRINTCLIENT:
            paint(reinterpret_cast<HDC>(message.w));
            return 0;
        default:
            return std::nullopt;
    }
}

void PictureView::paint(HDC dc) const {
    RECT area{};
    GetClientRect(handle(), &area);
    fill(dc, area, parts_.background);
    if (box_.Picture.load_number() == 0) return;
    Image& image = parts_.pictures.image(box_.Picture, parts_.dpi);
    if (!image.readable()) {
        return paint_placeholder(dc, area, box_.Picture, parts_.fonts, parts_.dpi);
    }
    const SIZE room = size_of(area);
    const SIZE size = fitted(image.size(), room);
    image.paint(dc, {(room.cx - size.cx) / 2, (room.cy - size.cy) / 2}, size, size.cy);
}

}  // namespace solvanta::win32
