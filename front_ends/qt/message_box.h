#pragma once

#include <QMessageBox>

#include "platform/host.h"

namespace solvanta::qt {

/// Shows a modal box over `parent`, which is destroyed when it has been closed; then, however that
/// was, `answered` is called.
QMessageBox* show_box(QWidget* parent, const QString& text, Buttons buttons, Answered answered);

}  // namespace solvanta::qt
