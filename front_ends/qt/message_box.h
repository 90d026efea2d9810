#pragma once

#include <QWidget>

#include "platform/host.h"

namespace solvanta::qt {

/// Shows a modal box over `parent` and waits; the first button is the default, Esc and the end of
/// the program answer like closing it.
Answer ask(QWidget* parent, const QString& text, Buttons buttons);

}  // namespace solvanta::qt
