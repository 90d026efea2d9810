#include "front_ends/qt/look.h"

#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QTranslator>

#include "front_ends/common/look.h"
#include "front_ends/common/trouble.h"
#include "front_ends/qt/fonts.h"

namespace solvanta::qt {
namespace {

constexpr int pixmap_cache_kilobytes = 256;

QFont standard_font(int pixels, const Scale& scale) {
    QFont font = QApplication::font();
    font.setPixelSize(qMax(1, scale.scaled(pixels)));
    return font;
}

QPalette light_palette() {
    const QColor face(0xf0, 0xf0, 0xee);
    QPalette palette(face, face);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x2c, 0x6e, 0x4f));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace

void prepare_application(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(light_palette());
    QApplication::setQuitOnLastWindowClosed(false);
    // Some desktops find a window's icon by its program's entry in the menu.
    QApplication::setDesktopFileName("org.solvanta.solvanta");
    // The style keeps the look of every button it has painted, and each message box has new ones.
    QPixmapCache::setCacheLimit(pixmap_cache_kilobytes);
    // A picture that can't be read is reported once, by us.
    QLoggingCategory::setFilterRules("qt.gui.imageio*=false");
    auto* german = new QTranslator(&application);
    if (german->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(german);
    }
}

QColor to_color(const Color& color) {
    return {color.red, color.green, color.blue};
}

QFont to_font(const Font& font, const Scale& scale) {
    if (font.family.empty()) return standard_font(standard_font_pixels, scale);
    QFont result;
    result.setFamilies(font_families(QString::fromStdString(font.family)));
    result.setPixelSize(qMax(1, scale.scaled(font.points * 96 / 72)));
    result.setBold(font.bold);
    return result;
}

QFont button_font(const Scale& scale) {
    return standard_font(button_font_pixels, scale);
}

QIcon program_icon(const QString& directory) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addFile(directory + QStringLiteral("/Solvanta-%1.png").arg(size));
    if (icon.availableSizes().isEmpty()) report_once("Solvanta-48.png", "Symbol nicht gefunden");
    return icon;
}

}  // namespace solvanta::qt
