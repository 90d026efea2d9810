#pragma once

#include <functional>

class QObject;

namespace solvanta::qt {

/// Puts something that swallows everything in place of the standard streams that were closed from
/// the start: else the next file or pipe opened would have their numbers, and what is written to
/// standard error would go into it. Called before anything else.
void hold_standard_streams();

/// Has `stop` called from the event loop when the system asks the program to terminate, hang up or
/// be interrupted. A second signal of the same kind takes its usual effect; one that was ignored
/// from the start stays ignored. Called once, for the life of `owner`.
void on_stop_signals(QObject& owner, std::function<void()> stop);

}  // namespace solvanta::qt
