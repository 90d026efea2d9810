// JPEG, GIF and PNG files, by the libraries that know them best.
#pragma once

#include "image.h"

namespace solvanta::pictures {

// The encoders throw std::runtime_error when the library fails, the decoders also when the
// bytes are not a file of their format. Decoders give opaque pixels, the PNG decoder keeps alpha.

// High quality, colour at full resolution; alpha is dropped.
Bytes encode_jpeg(const Image& image);
Image decode_jpeg(const Bytes& file);

// One frame, at most 256 colours; alpha is dropped.
Bytes encode_gif(const Image& image);
Image decode_gif(const Bytes& file);

// With alpha where the picture has it, and unless `exact` with a palette of 256 colours where no
// difference is seen. The same picture gives the same bytes; they hold no date and no text.
Bytes encode_png(const Image& image, bool exact);
Image decode_png(const Bytes& file);

}  // namespace solvanta::pictures
