#include "front_ends/qt/pictures.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include <QCoreApplication>

#include "front_ends/common/picture_bytes.h"
#include "fuzz/require.h"

extern "C" int LLVMFuzzerInitialize(const int* count, char*** arguments) {
    static int kept = *count;
    static QCoreApplication application(kept, *arguments);
    return 0;
}

/// Reads the bytes behind the first, which chooses the format, as a picture file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvanta;
    constexpr const char* formats[] = {"bmp", "gif", "jpg", "png"};
    if (size == 0) return 0;
    std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string suffix = formats[*data % std::size(formats)];
    if (!is_whole_picture(bytes, suffix)) return 0;
    const auto image = qt::decode_picture(bytes, suffix);
    if (!image) return 0;
    fuzz::require(image->pixels.width() <= 4096 && image->pixels.height() <= 4096,
                  "A picture is too large.");
    fuzz::require(image->pixels.format() == QImage::Format_RGB32 ||
                      image->pixels.format() == QImage::Format_ARGB32_Premultiplied,
                  "A picture is not ready for painting.");
    return 0;
}
