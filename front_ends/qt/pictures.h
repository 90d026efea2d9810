#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QString>

#include "platform/elements.h"

namespace solvanta::qt {

/// The file to show for the picture at `path` on a screen with `ratio` device pixels to a pixel:
/// its neighbour `Name@2x.ext` above a ratio of 1, else itself. Whether it exists is not asked.
QString file_for_ratio(const QString& path, double ratio);

/// The picture that `bytes` hold in `format`, the suffix of its file's name, ready for painting.
/// Null when they don't hold one, or not the whole of it, or one that is absurdly large.
QImage decode_picture(QByteArray bytes, const QByteArray& format);

/// Reads a picture in the format its suffix names, ready for painting; its size in logical pixels
/// is that of the plain file. Null, with one line on standard error for each file name in a run,
/// when the file is missing, damaged, cut short, or absurdly large.
QImage read_picture(const QString& path, double ratio);

/// Paints `source`, a part of `image` in its own pixels, into `target`.
void paint_image(QPainter& painter, const QRectF& target, const QImage& image,
                 const QRectF& source);

/// What stands in for a picture that can't be read: a light box bearing its file's name.
void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture);

/// The images of the pictures on show. An image is read when it is first asked for and shared
/// among the copies of one load, never between two loads.
class Pictures {
  public:
    /// The image of `picture` for a screen of this ratio; null when it can't be read.
    const QImage& image(const Picture& picture, double ratio);

    /// Drops the images of all loads but these.
    void keep_only(const std::set<std::uint64_t>& loads);

  private:
    std::map<std::pair<std::uint64_t, bool>, QImage> images_;  // by load and by high resolution
};

}  // namespace solvanta::qt
