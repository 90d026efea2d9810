#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "platform/host.h"

namespace solvanta::win32 {

/// The system's message boxes, with German buttons whatever the system's language.
class MessageBoxes {
  public:
    /// Shows a modal box over `owner` and waits; the first button is the default, Esc and
    /// `close_all` answer like closing it.
    Answer ask(HWND owner, const std::string& text, Buttons buttons);

    /// Closes every box that is open.
    void close_all();

  private:
    std::vector<HWND> open_;
};

}  // namespace solvanta::win32
