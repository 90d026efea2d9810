#include "front_ends/qt/pictures.h"

#include <QApplication>
#include <QBuffer>
#include <QFontMetricsF>
#include <QImageReader>

#include "front_ends/common/look.h"
#include "front_ends/common/picture_bytes.h"
#include "front_ends/qt/look.h"

namespace solvanta::qt {
namespace {

bool has_sound_size(const QSize& size) {
    return qMax(size.width(), size.height()) <= largest_picture_side;
}

QImage copy_of(std::string_view bytes, const PlainBitmap& bitmap) {
    QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
    copy_pixels(bytes, bitmap,
                [&](int y) { return reinterpret_cast<std::uint32_t*>(image.scanLine(y)); });
    return image;
}

QImage decoded(std::string& bytes, const std::string& suffix) {
    if (const auto plain =
            suffix == "bmp" ? plain_bitmap(bytes, largest_picture_side) : std::nullopt)
        return copy_of(bytes, *plain);
    QByteArray held = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&held);
    QImageReader reader(&buffer, QByteArray::fromStdString(suffix));
    reader.setAutoDetectImageFormat(false);
    QImage image = has_sound_size(reader.size()) ? reader.read() : QImage();
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    return has_sound_size(image.size()) ? image : QImage();
}

}  // namespace

std::optional<Image> decode_picture(std::string& bytes, const std::string& suffix) {
    QImage image = decoded(bytes, suffix);
    return image.isNull() ? std::nullopt : std::optional(Image(std::move(image)));
}

/// One made for another size, while a window is being resized, is stretched as fast as can be.
void paint_image(QPainter& painter, const QRectF& target, const QImage& image, double part) {
    painter.drawImage(target, image, QRectF(0, 0, image.width(), image.height() * part));
}

void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture,
                       const Scale& scale) {
    const QString name = QString::fromStdString(file_name(picture.path()));
    const QRectF inside = place.adjusted(1, 1, -1, -1);
    QFont font = QApplication::font();
    font.setPixelSize(placeholder_font_pixels(scale, [&](int pixels) {
        font.setPixelSize(pixels);
        const QFontMetricsF metrics(font);
        return metrics.horizontalAdvance(name) <= inside.width() &&
               metrics.height() <= inside.height();
    }));
    const QString text =
        QFontMetricsF(font).elidedText(name, Qt::ElideMiddle, qMax(1.0, inside.width()));
    painter.save();
    painter.fillRect(place, to_color(placeholder_border));
    painter.fillRect(inside, to_color(placeholder_ground));
    painter.setClipRect(inside, Qt::IntersectClip);
    painter.setPen(to_color(placeholder_ink));
    painter.setFont(font);
    painter.drawText(inside, static_cast<int>(Qt::AlignHCenter) | Qt::AlignTop, text);
    painter.restore();
}

}  // namespace solvanta::qt

template class solvanta::PictureStore<solvanta::qt::Image>;
