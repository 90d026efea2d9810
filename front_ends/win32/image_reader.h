#pragma once

#include <string>

#include "front_ends/win32/bitmap.h"

struct IWICImagingFactory;

namespace solvanta::win32 {

/// Reads picture files by the system's own decoders, which it loads for the first one.
class ImageReader {
  public:
    ImageReader() = default;
    ImageReader(const ImageReader&) = delete;
    ImageReader& operator=(const ImageReader&) = delete;
    ~ImageReader();

    /// The picture in the file at `path` (UTF-8), in the format its suffix names. Empty, with one
    /// line on standard error for each file name in a run, when the file is damaged, cut short,
    /// absurdly large or missing; nothing is said of a missing one that is `optional`.
    Bitmap read(const std::string& path, bool optional);

  private:
    Bitmap decode(std::string& bytes, const std::string& suffix);
    IWICImagingFactory* decoders();

    IWICImagingFactory* factory_ = nullptr;
    HMODULE com_ = nullptr;
    bool joined_ = false;
};

}  // namespace solvanta::win32
