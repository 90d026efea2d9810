#pragma once

#include <cstdint>

#include "front_ends/win32/gdi.h"

namespace solvanta::win32 {

/// A picture in memory: 32 bits a pixel, blue, green, red and alpha in rising bytes, the colours
/// multiplied by alpha, the top line first.
class Bitmap {
  public:
    Bitmap() = default;

    /// A clear picture; empty when the system has no memory for it.
    explicit Bitmap(SIZE size);

    bool empty() const { return !handle_; }
    SIZE size() const { return size_; }
    HBITMAP handle() const { return static_cast<HBITMAP>(handle_.get()); }
    std::uint32_t* line(int y) { return pixels_ + index(y); }
    const std::uint32_t* line(int y) const { return pixels_ + index(y); }

    /// Whether nothing shines through anywhere.
    bool is_opaque() const;

    /// The picture in another size: each pixel is the mean of what it covers of this one.
    Bitmap scaled_to(SIZE size) const;

  private:
    std::ptrdiff_t index(int y) const { return static_cast<std::ptrdiff_t>(y) * size_.cx; }

    SIZE size_{};
    GdiObject handle_;
    std::uint32_t* pixels_ = nullptr;  // owned by the handle
};

}  // namespace solvanta::win32
