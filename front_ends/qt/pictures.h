#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include <QByteArray>
#include <QImage>
#include <QPainter>

#include "platform/elements.h"

namespace solvanta::qt {

/// The picture that `bytes` hold in `format`, the suffix of its file's name, ready for painting.
/// Null when they don't hold one, or not the whole of it, or one that is absurdly large.
QImage decode_picture(std::string_view bytes, const QByteArray& format);

/// Paints `source`, a part of `image` in its own pixels, into `target`.
void paint_image(QPainter& painter, const QRectF& target, const QImage& image,
                 const QRectF& source);

/// What stands in for a picture that can't be read: a light box bearing its file's name.
void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture);

/// The images of the pictures on show. A file is read when its image is first asked for, in the
/// format its suffix names; the image is shared among the copies of one load, never between two
/// loads.
class Pictures {
  public:
    /// The image of `picture` for a screen with `ratio` device pixels to a pixel, ready for
    /// painting: above a ratio of 1 from the neighbour `Name@2x.ext` where there is one. Null, with
    /// one line on standard error for each file name in a run, when the file is missing, damaged,
    /// cut short, or absurdly large.
    const QImage& image(const Picture& picture, double ratio);

    /// Drops the images of all loads but these.
    void keep_only(Loads loads);

  private:
    QImage read(const std::string& path, double ratio);
    QImage read_file(const std::string& path, bool optional);

    std::string bytes_;  // of the file read last; its memory is used again
    std::map<std::pair<std::uint64_t, bool>, QImage> images_;  // by load and by high resolution
};

}  // namespace solvanta::qt
