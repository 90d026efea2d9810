#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "front_ends/win32/fonts.h"
#include "front_ends/win32/image_reader.h"
#include "platform/elements.h"

namespace solvanta::win32 {

/// A picture as it is shown at one resolution.
class Image {
  public:
    /// What can't be read.
    Image() = default;

    /// `fine` says that two pixels of the file make one where 96 dots make an inch.
    Image(Bitmap source, bool fine, int dpi);

    bool readable() const { return !source_.empty(); }

    /// Its own size in device pixels.
    SIZE size() const { return size_; }

    /// Paints the picture, scaled to `size`, with its top left corner at `corner`; of its lines
    /// only the first `lines`.
    void paint(HDC dc, POINT corner, SIZE size, int lines);

  private:
    const Bitmap& in_size(SIZE size);

    Bitmap source_;
    Bitmap scaled_;  // the source in the size last asked for, unless that is its own
    SIZE size_{};
    bool opaque_ = false;
};

/// The images of the pictures on show. A file is read when its picture is first painted; the image
/// is shared among the copies of one load, never between two loads.
class Pictures {
  public:
    /// The image of `picture` at this resolution; above 96 dots per inch it comes from the
    /// neighbour `Name@2x.ext` where there is one.
    Image& image(const Picture& picture, int dpi);

    /// Drops the images of all loads but these.
    void keep_only(Loads loads);

  private:
    Image read(const std::string& path, int dpi);

    ImageReader reader_;
    std::map<std::pair<std::uint64_t, int>, Image> images_;  // by load and by resolution
};

/// What stands in for a picture that can't be read: a light box bearing its file's name.
void paint_placeholder(HDC dc, const RECT& place, const Picture& picture, Fonts& fonts, int dpi);

}  // namespace solvanta::win32
