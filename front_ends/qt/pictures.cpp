#include "front_ends/qt/pictures.h"

#include <algorithm>

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>

#include "front_ends/qt/trouble.h"
#include "platform/picture_bytes.h"
#include "scores/durable_file.h"

namespace solvanta::qt {
namespace {

constexpr int largest_side = 4096;
constexpr std::size_t largest_file = std::size_t{65} << 20;  // more than the largest bitmap
constexpr double fine_ratio = 2;                             // of the files named `@2x`

bool wants_fine_file(double ratio) {
    return ratio > 1;
}

QString fine_file(const QString& path) {
    const auto dot = path.lastIndexOf('.');
    if (dot <= path.lastIndexOf('/')) return path + "@2x";
    return path.left(dot) + "@2x" + path.mid(dot);
}

QImage copy_of(std::string_view bytes, const PlainBitmap& bitmap) {
    QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
    const auto* line = reinterpret_cast<const uchar*>(bytes.data()) + bitmap.start;
    for (int y = bitmap.height - 1; y >= 0; --y, line += bitmap.line_bytes) {
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        const uchar* bgr = line;
        for (int x = 0; x < bitmap.width; ++x, bgr += 3)
            pixel[x] = qRgb(bgr[2], bgr[1], bgr[0]);
    }
    return image;
}

/// The largest size, from 11 pixels down to 7, in which one line of `text` fits into `place`.
QFont fitting_font(const QString& text, const QRectF& place) {
    QFont font = QApplication::font();
    int pixels = 11;
    for (; pixels > 7; --pixels) {
        font.setPixelSize(pixels);
        const QFontMetricsF metrics(font);
        if (metrics.horizontalAdvance(text) <= place.width() && metrics.height() <= place.height())
            return font;
    }
    font.setPixelSize(pixels);
    return font;
}

}  // namespace

QImage decode_picture(std::string_view bytes, const QByteArray& format) {
    if (!is_whole_picture(bytes, format.toStdString())) return {};
    const auto plain = format == "bmp" ? plain_bitmap(bytes, largest_side) : std::nullopt;
    if (plain) return copy_of(bytes, *plain);
    QByteArray held = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&held);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (qMax(size.width(), size.height()) > largest_side) return {};
    QImage image = reader.read();
    if (qMax(image.width(), image.height()) > largest_side) return {};
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
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
    const QString name = QFileInfo(QString::fromStdString(picture.path())).fileName();
    painter.save();
    painter.fillRect(place, QColor(0x50, 0x50, 0x50));
    const QRectF inside = place.adjusted(1, 1, -1, -1);
    painter.fillRect(inside, QColor(0xf6, 0xf2, 0xe4));
    painter.setClipRect(inside, Qt::IntersectClip);
    painter.setPen(Qt::black);
    const QFont font = fitting_font(name, inside);
    painter.setFont(font);
    const QString text =
        QFontMetricsF(font).elidedText(name, Qt::ElideMiddle, qMax(1.0, inside.width()));
    painter.drawText(inside, static_cast<int>(Qt::AlignHCenter) | Qt::AlignTop, text);
    painter.restore();
}

const QImage& Pictures::image(const Picture& picture, double ratio) {
    const auto [entry, is_new] =
        images_.try_emplace({picture.load_number(), wants_fine_file(ratio)}, QImage());
    if (is_new && picture.load_number() != 0) {
        entry->second = read(picture.path(), ratio);
    }
    return entry->second;
}

QImage Pictures::read(const std::string& path, double ratio) {
    if (wants_fine_file(ratio)) {
        QImage image = read_file(fine_file(QString::fromStdString(path)).toStdString(), true);
        image.setDevicePixelRatio(fine_ratio);
        if (!image.isNull()) return image;
    }
    return read_file(path, false);
}

/// A missing `optional` file is not worth a word.
QImage Pictures::read_file(const std::string& path, bool optional) {
    const std::error_code error = system_file_calls().read(path, largest_file, bytes_);
    const bool missing = error == std::errc::no_such_file_or_directory;
    if (missing && optional) return {};
    const QFileInfo about(QString::fromStdString(path));
    QImage image = error ? QImage() : decode_picture(bytes_, about.suffix().toLower().toLatin1());
    if (image.isNull()) {
        const QString trouble = missing ? "Bild nicht gefunden (" : "Bild nicht lesbar (";
        report_once(about.fileName(), trouble + about.filePath() + ")");
    }
    return image;
}

void Pictures::keep_only(Loads loads) {
    std::sort(loads.begin(), loads.end());
    std::erase_if(images_, [&](const auto& entry) {
        return !std::binary_search(loads.begin(), loads.end(), entry.first.first);
    });
}

}  // namespace solvanta::qt
