#pragma once

#include <functional>

class QObject;

namespace solvanta::qt {

/// Has `stop` called from the event loop when the system asks the program to terminate, hang up or
/// be interrupted. A second signal of the same kind takes its usual effect; one that was ignored
/// from the start stays ignored. Called once, for the life of `owner`.
void on_stop_signals(QObject& owner, std::function<void()> stop);

}  // namespace solvanta::qt
