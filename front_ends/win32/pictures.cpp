#include "front_ends/win32/pictures.h"

#include <algorithm>
#include <utility>

#include <initguid.h>
#include <wincodec.h>
#include <wrl/client.h>

#include "front_ends/common/look.h"
#include "front_ends/common/picture_bytes.h"

namespace solvanta::win32 {
namespace {

using Microsoft::WRL::ComPtr;

/// The system's decoders, for the life of the program; null where there are none.
IWICImagingFactory* decoders() {
    static IWICImagingFactory* const factory = [] {
        IWICImagingFactory* made = nullptr;
        if (SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
            CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                             IID_PPV_ARGS(&made));
        }
        return made;
    }();
    return factory;
}

const GUID* format_of(const std::string& suffix) {
    if (suffix == "bmp") return &GUID_ContainerFormatBmp;
    if (suffix == "gif") return &GUID_ContainerFormatGif;
    if (suffix == "jpg") return &GUID_ContainerFormatJpeg;
    if (suffix == "png") return &GUID_ContainerFormatPng;
    return nullptr;
}

/// The first picture of a file in memory, its pixels as those of an Image; null when the bytes are
/// none in this format.
ComPtr<IWICFormatConverter> first_picture(IWICImagingFactory& factory, std::string& bytes,
                                          const GUID& format) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> picture;
    const bool read =
        SUCCEEDED(factory.CreateStream(&stream)) &&
        SUCCEEDED(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(bytes.data()),
                                               static_cast<DWORD>(bytes.size()))) &&
        SUCCEEDED(factory.CreateDecoder(format, nullptr, &decoder)) &&
        SUCCEEDED(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand)) &&
        SUCCEEDED(decoder->GetFrame(0, &frame)) &&
        SUCCEEDED(factory.CreateFormatConverter(&picture)) &&
        SUCCEEDED(picture->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                      WICBitmapDitherTypeNone, nullptr, 0,
                                      WICBitmapPaletteTypeCustom));
    return read ? picture : nullptr;
}

std::optional<Image> decoded(std::string& bytes, const std::string& suffix) {
    const GUID* const format = format_of(suffix);
    if (!format || !decoders()) return std::nullopt;
    const ComPtr<IWICFormatConverter> picture = first_picture(*decoders(), bytes, *format);
    UINT width = 0;
    UINT height = 0;
    if (picture) picture->GetSize(&width, &height);
    if (std::max(width, height) > UINT{largest_picture_side}) return std::nullopt;
    Image image({static_cast<int>(width), static_cast<int>(height)});
    auto* const pixels = reinterpret_cast<BYTE*>(image.grid().pixels);
    const bool copied = pixels != nullptr && SUCCEEDED(picture->CopyPixels(
                                                 nullptr, 4 * width, 4 * width * height, pixels));
    return copied ? std::optional(std::move(image)) : std::nullopt;
}

std::optional<Image> copy_of(std::string_view bytes, const PlainBitmap& plain) {
    Image image({plain.width, plain.height});
    std::uint32_t* const pixels = image.grid().pixels;
    if (!pixels) return std::nullopt;
    copy_pixels(bytes, plain, [&](int y) { return pixels + y * std::ptrdiff_t{plain.width}; });
    return image;
}

}  // namespace

Image::Image(PixelSize size) : size_(size) {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = size.width;
    description.bmiHeader.biHeight = -size.height;  // the top line first
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    bitmap_.reset(CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0));
    pixels_ = static_cast<std::uint32_t*>(pixels);
}

void Image::find_out_opacity() {
    opaque_ = std::all_of(pixels_, pixels_ + std::ptrdiff_t{size_.width} * size_.height,
                          [](std::uint32_t pixel) { return pixel >> 24U == 0xFF; });
}

void Image::paint(HDC dc, const RECT& area, int height) const {
    const SIZE target = size_of(area);
    const int lines = MulDiv(size_.height, target.cy, height);
    HDC memory = CreateCompatibleDC(dc);
    HGDIOBJ before = SelectObject(memory, bitmap_.get());
    if (opaque_) {
        SetStretchBltMode(dc, COLORONCOLOR);
        StretchBlt(dc, area.left, area.top, target.cx, target.cy, memory, 0, 0, size_.width, lines,
                   SRCCOPY);
    } else {
        const BLENDFUNCTION by_alpha{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        GdiAlphaBlend(dc, area.left, area.top, target.cx, target.cy, memory, 0, 0, size_.width,
                      lines, by_alpha);
    }
    SelectObject(memory, before);
    DeleteDC(memory);
}

std::optional<Image> decode_picture(std::string& bytes, const std::string& suffix) {
    const auto plain = suffix == "bmp" ? plain_bitmap(bytes, largest_picture_side) : std::nullopt;
    std::optional<Image> image = plain ? copy_of(bytes, *plain) : decoded(bytes, suffix);
    if (image && !plain) image->find_out_opacity();
    return image;
}

void paint_placeholder(HDC dc, const RECT& place, const Picture& picture, const Scale& scale) {
    RECT inside = place;
    InflateRect(&inside, -scale.scaled(1), -scale.scaled(1));
    fill(dc, place, to_color(placeholder_border));
    fill(dc, inside, to_color(placeholder_ground));
    const std::string name = file_name(picture.path());
    const int font_pixels = placeholder_font_pixels(Scale(), [&](int pixels) {
        const SIZE size = text_size(dc, name, standard_font(pixels, scale));
        return size.cx <= size_of(inside).cx && size.cy <= size_of(inside).cy;
    });
    draw_text(dc, name, inside, DT_CENTER | DT_TOP | DT_SINGLELINE | DT_END_ELLIPSIS,
              standard_font(font_pixels, scale), to_color(placeholder_ink));
}

}  // namespace solvanta::win32

template class solvanta::PictureStore<solvanta::win32::Image>;
