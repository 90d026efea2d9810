#pragma once

#include <optional>
#include <string>

#include <QImage>
#include <QPainter>

#include "front_ends/common/picture_store.h"

namespace solvanta::qt {

/// The images of the pictures on show, ready for painting.
using Pictures = PictureStore<QImage>;

/// What `Pictures` make their images by.
std::optional<QImage> decode_picture(std::string& bytes, const std::string& suffix, bool fine);

/// Whether a screen with so many device pixels to a pixel wants the fine files.
inline bool is_fine(double ratio) {
    return ratio > 1;
}

/// Paints `source`, a part of `image` in its own pixels, into `target`.
void paint_image(QPainter& painter, const QRectF& target, const QImage& image,
                 const QRectF& source);

/// Paints what stands in for a picture that can't be read.
void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture);

}  // namespace solvanta::qt
