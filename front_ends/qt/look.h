#pragma once

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

#include "front_ends/common/scale.h"

namespace solvanta::qt {

/// Gives the application its look and language whatever the desktop's: Fusion with a light
/// palette, and Qt's own texts in German where its translation is installed.
void prepare_application(QApplication& application);

QColor to_color(const Color& color);

/// The font in a size counted in pixels, so that the layout holds at every resolution of fonts.
QFont to_font(const Font& font, const Scale& scale);

/// The standard font of buttons, small enough for one 17 pixels high.
QFont button_font(const Scale& scale);

/// The program's icon in the sizes that windows and lists of windows show, from `directory`; null,
/// with one line on standard error, when there is none.
QIcon program_icon(const QString& directory);

}  // namespace solvanta::qt
