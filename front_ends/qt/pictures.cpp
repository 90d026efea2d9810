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

constexpr double fine_ratio = 2;

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

std::optional<QImage> decode_picture(std::string& bytes, const std::string& suffix, bool fine) {
    QImage image = decoded(bytes, suffix);
    if (image.isNull()) return std::nullopt;
    image.setDevicePixelRatio(fine ? fine_ratio : 1);
    return image;
}

void paint_image(QPainter& painter, const QRectF& target, const QImage& image,
                 const QRectF& source) {
    const double ratio = painter.device()->devicePixelRatioF();
    const bool exact = qFuzzyCompare(target.width() * ratio, source.width()) &&
                       qFuzzyCompare(target.height() * ratio, source.height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !exact);
    painter.drawImage(target, image, source);
}

void paint_placeholder(QPainter& painter, const QRectF& place, const Picture& picture) {
    const QString name = QString::fromStdString(file_name(picture.path()));
    const QRectF inside = place.adjusted(1, 1, -1, -1);
    QFont font = QApplication::font();
    font.setPixelSize(placeholder_font_pixels([&](int pixels) {
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
