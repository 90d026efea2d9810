#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include <QImage>
#include <QPainter>

#include "front_ends/common/picture_store.h"

namespace solvanta::qt {

/// A picture ready for painting.
struct Image {
    explicit Image(QImage of) : pixels(std::move(of)) {}
    Image(const Image& like, PixelSize size)
        : pixels(size.width, size.height, like.pixels.format()) {}

    PixelGrid grid() {
        return {reinterpret_cast<std::uint32_t*>(pixels.bits()), pixels.width(), pixels.height()};
    }

    QImage pixels;
};

/// The images of the pictures on show.
using Pictures = PictureStore<Image>;

/// What `Pictures` make their images by.
std::optional<Image> decode_picture(std::string& bytes, const std::string& suffix);

/// Paints an image, or the upper part of it, into `target`.
void paint_image(QPainter& painter, const QRectF& target, const QImage& image, double part);

/// Paints what stands in for a picture that can't be read.
void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture,
                       const Scale& scale);

}  // namespace solvanta::qt

extern template class solvanta::PictureStore<solvanta::qt::Image>;
