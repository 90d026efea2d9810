#pragma once

namespace solvanta::qt {

/// Whether there is a screen to start on. Qt itself ends the process with an abort when there is
/// none, so this is asked before the application is made; it takes well under a millisecond.
bool display_available();

}  // namespace solvanta::qt
