#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "front_ends/common/picture_store.h"
#include "front_ends/win32/look.h"

namespace solvanta::win32 {

/// A picture in memory: 32 bits a pixel, blue, green, red and alpha in rising bytes, the colours
/// multiplied by alpha, the top line first.
struct Bitmap {
    SIZE size{};
    GdiObject handle;                 ///< without one there is no picture
    std::uint32_t* pixels = nullptr;  ///< owned by the handle
};

/// A picture as it is shown.
class Image {
  public:
    /// `fine` says that two of the bitmap's pixels make one.
    Image(Bitmap bitmap, bool fine);

    /// Its own size in device pixels.
    SIZE size(const Scale& scale) const;

    /// Paints the picture into `area`, scaled to its width and to `height`. What reaches below
    /// the area is left out.
    void paint(HDC dc, const RECT& area, int height) const;

  private:
    Bitmap bitmap_;
    int pixels_to_one_;
    bool opaque_;
};

/// The images of the pictures on show, ready for painting.
using Pictures = PictureStore<Image>;

/// What `Pictures` make their images by. Files other than plain bitmaps are read by the system's
/// own decoders, which are loaded for the first one.
std::optional<Image> decode_picture(std::string& bytes, const std::string& suffix, bool fine);

/// Whether a screen wants the fine files.
inline bool is_fine(const Scale& scale) {
    return scale.pixels() > 1;
}

/// Paints what stands in for a picture that can't be read.
void paint_placeholder(HDC dc, const RECT& place, const Picture& picture, const Scale& scale);

}  // namespace solvanta::win32
