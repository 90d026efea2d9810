#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "front_ends/common/picture_store.h"
#include "front_ends/win32/look.h"

namespace solvanta::win32 {

/// A picture ready for painting.
class Image {
  public:
    explicit Image(PixelSize size);
    Image(const Image& like, PixelSize size) : Image(size) { opaque_ = like.opaque_; }

    PixelGrid grid() const { return {pixels_, size_.width, size_.height}; }

    /// To be called when all pixels are there.
    void find_out_opacity();

    /// Paints the picture into `area`, as if that were so many pixels high: what reaches below it
    /// is left out. One of another size, while a window is being resized, is stretched as fast as
    /// can be.
    void paint(HDC dc, const RECT& area, int height) const;

  private:
    PixelSize size_;
    GdiObject bitmap_;                 ///< without one there is no memory for the picture
    std::uint32_t* pixels_ = nullptr;  ///< owned by the bitmap
    bool opaque_ = true;
};

/// The images of the pictures on show.
using Pictures = PictureStore<Image>;

/// What `Pictures` make their images by. Files other than plain bitmaps are read by the system's
/// own decoders, which are loaded for the first one.
std::optional<Image> decode_picture(std::string& bytes, const std::string& suffix);

/// Paints what stands in for a picture that can't be read.
void paint_placeholder(HDC dc, const RECT& place, const Picture& picture, const Scale& scale);

}  // namespace solvanta::win32

extern template class solvanta::PictureStore<solvanta::win32::Image>;
