#include "front_ends/qt/pictures.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>

#include "front_ends/qt/trouble.h"
#include "platform/picture_bytes.h"

namespace solvanta::qt {
namespace {

constexpr int largest_side = 4096;
constexpr qint64 largest_file = qint64{65} << 20;  // more than a bitmap of the largest sides
constexpr double fine_ratio = 2;                   // of the files named `@2x`

bool wants_fine_file(double ratio) {
    return ratio > 1;
}

QImage read_file(const QString& path) {
    QFile file(path);
    const QFileInfo about(file);
    if (!about.isFile()) {
        report_once(about.fileName(), "Bild nicht gefunden (" + path + ")");
        return {};
    }
    QImage image;
    if (file.size() <= largest_file && file.open(QIODevice::ReadOnly)) {
        image = decode_picture(file.readAll(), about.suffix().toLower().toLatin1());
    }
    if (image.isNull()) {
        report_once(about.fileName(), "Bild nicht lesbar (" + path + ")");
        return {};
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

QImage decode_picture(QByteArray bytes, const QByteArray& format) {
    if (!is_whole_picture({bytes.constData(), static_cast<std::size_t>(bytes.size())},
                          {format.constData(), static_cast<std::size_t>(format.size())}))
        return {};
    QBuffer buffer(&bytes);
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

QString file_for_ratio(const QString& path, double ratio) {
    if (!wants_fine_file(ratio)) return path;
    const auto dot = path.lastIndexOf('.');
    if (dot <= path.lastIndexOf('/')) return path + "@2x";
    return path.left(dot) + "@2x" + path.mid(dot);
}

QImage read_picture(const QString& path, double ratio) {
    const QString fine = file_for_ratio(path, ratio);
    if (fine != path && QFileInfo::exists(fine)) {
        if (QImage image = read_file(fine); !image.isNull()) {
            image.setDevicePixelRatio(fine_ratio);
            return image;
        }
    }
    return read_file(path);
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
        entry->second = read_picture(QString::fromStdString(picture.path()), ratio);
    }
    return entry->second;
}

void Pictures::keep_only(const std::set<std::uint64_t>& loads) {
    std::erase_if(images_, [&](const auto& entry) { return !loads.contains(entry.first.first); });
}

}  // namespace solvanta::qt
