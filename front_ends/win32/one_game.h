#pragma once

#include <functional>
#include <memory>
#include <string>

#include "front_ends/win32/window.h"

namespace solvanta::win32 {

struct HandleDeleter {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// One directory, one game: two of them would each write their own list over the other's. The lock
/// of a program directory belongs to the user's game in it and goes with its process, however that
/// dies; nothing of it lies on the disk. Where the system gives no such lock every game may start.
class OneGame {
  public:
    /// Takes the lock of `directory`. Another game that has it is asked to come forward; one that
    /// is about to end is waited for, up to two seconds.
    explicit OneGame(const std::string& directory);

    /// Whether this is the game of its directory; any other has nothing to do.
    bool may_start() const { return may_start_; }

    /// Has `come_forward` called from the event loop whenever a later game of the directory has
    /// been started, for the life of this object. It answers whether there is a window to come.
    void on_later_start(std::function<bool()> come_forward);

  private:
    std::wstring name_;
    std::unique_ptr<void, HandleDeleter> lock_;
    std::unique_ptr<Window> ear_;
    bool may_start_ = true;
};

}  // namespace solvanta::win32
