#pragma once

#include <QLocale>

#include "platform/host.h"

namespace solvanta::qt {

/// What a locale writes: the short names of the months without a full stop at their end, the
/// text between hour and minute, and the decimal separator.
LocaleTexts texts_of(const QLocale& locale);

}  // namespace solvanta::qt
