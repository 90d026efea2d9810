#pragma once

#include "platform/host.h"

namespace solvanta::win32 {

/// The texts of the user's own settings.
LocaleTexts user_texts();

}  // namespace solvanta::win32
