#pragma once

#include <map>
#include <string>
#include <tuple>

#include "front_ends/win32/gdi.h"

namespace solvanta::win32 {

/// The fonts in use, each made once for a resolution and kept.
class Fonts {
  public:
    /// The font of an element on a screen of `dpi` dots per inch; without a family the system's
    /// own for messages, in a size that the layout holds.
    HFONT of(const Font& font, int dpi);

    /// The system's own font, `pixels` high where 96 make an inch.
    HFONT standard(int pixels, int dpi);

  private:
    HFONT make(const std::wstring& family, int pixels, bool bold);

    std::map<std::tuple<std::wstring, int, bool>, GdiObject> fonts_;
};

}  // namespace solvanta::win32
