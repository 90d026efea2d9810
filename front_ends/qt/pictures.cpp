#include "front_ends/qt/pictures.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>
#include <QtEndian>

#include "front_ends/qt/trouble.h"

namespace solvanta::qt {
namespace {

constexpr int largest_side = 4096;
constexpr double high_ratio = 2;

/// Qt takes a file cut short for a whole one and leaves the missing part black or blank, so the
/// file itself is asked: a bitmap's header knows its length, the others end with a mark.
bool is_cut_short(const QString& path, const QByteArray& format) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return true;
    if (format == "bmp") {
        const QByteArray start = file.read(6);
        return start.size() < 6 || qFromLittleEndian<quint32>(start.constData() + 2) > file.size();
    }
    if (format != "gif" && format != "jpg") return false;
    const QByteArray end_mark = format == "gif" ? ";" : "\xFF\xD9";
    return !file.seek(qMax<qint64>(0, file.size() - end_mark.size())) || file.readAll() != end_mark;
}

QImage read_file(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        report_once(file.fileName(), "Bild nicht gefunden (" + path + ")");
        return {};
    }
    const QByteArray format = file.suffix().toLower().toLatin1();
    QImageReader reader(path, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    QImage image;
    if (qMax(size.width(), size.height()) <= largest_side && !is_cut_short(path, format)) {
        image = reader.read();
    }
    if (image.isNull() || qMax(image.width(), image.height()) > largest_side) {
        report_once(file.fileName(), "Bild nicht lesbar (" + path + ")");
        return {};
    }
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
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

QString file_for_ratio(const QString& path, double ratio) {
    if (ratio < high_ratio) return path;
    const auto dot = path.lastIndexOf('.');
    if (dot <= path.lastIndexOf('/')) return path + "@2x";
    return path.left(dot) + "@2x" + path.mid(dot);
}

QImage read_picture(const QString& path, double ratio) {
    const QString fine = file_for_ratio(path, ratio);
    if (fine != path && QFileInfo::exists(fine)) {
        if (QImage image = read_file(fine); !image.isNull()) {
            image.setDevicePixelRatio(high_ratio);
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
        images_.try_emplace({picture.load_number(), ratio >= high_ratio}, QImage());
    if (is_new && picture.load_number() != 0) {
        entry->second = read_picture(QString::fromStdString(picture.path()), ratio);
    }
    return entry->second;
}

void Pictures::keep_only(const std::set<std::uint64_t>& loads) {
    std::erase_if(images_, [&](const auto& entry) { return !loads.contains(entry.first.first); });
}

void collect_loads(const Container& container, std::set<std::uint64_t>& loads) {
    for (const Painted& item : container.canvas) {
        if (auto* const* element = std::get_if<PictureElement*>(&item)) {
            loads.insert((*element)->Picture.load_number());
        }
    }
    for (const Control& item : container.controls) {
        if (auto* const* box = std::get_if<PictureBox*>(&item)) {
            loads.insert((*box)->Picture.load_number());
        } else if (auto* const* frame = std::get_if<Frame*>(&item)) {
            collect_loads(**frame, loads);
        }
    }
}

}  // namespace solvanta::qt
