#pragma once

#include <string>

#include "files/files.h"
#include "view/windows.h"

namespace solvanta {

/// The help window.
class Form2 : public HelpWindow {
  public:
    /// Reads the help text from the file at `path` (UTF-8), replacing what was shown. When the
    /// file can't be read, or is no rich text or not the whole of one, a sentence in its place says
    /// so, and one line goes to standard error.
    void load_help(Files& files, const std::string& path);
};

}  // namespace solvanta
