#include "front_ends/win32/image_reader.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include <initguid.h>
#include <wincodec.h>
#include <wrl/client.h>

#include "front_ends/win32/system_library.h"
#include "front_ends/win32/trouble.h"
#include "front_ends/common/picture_bytes.h"
#include "scores/durable_file.h"

namespace solvanta::win32 {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::size_t largest_file = std::size_t{65} << 20;  // more than a bitmap of largest sides
constexpr UINT largest_side = 4096;

std::string suffix_of(const std::string& path) {
    const std::size_t dot = path.find_last_of(R"(./\)");
    if (dot == std::string::npos || path[dot] != '.') return {};
    std::string suffix = path.substr(dot + 1);
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](char character) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    });
    return suffix;
}

const GUID* format_of(const std::string& suffix) {
    if (suffix == "bmp") return &GUID_ContainerFormatBmp;
    if (suffix == "gif") return &GUID_ContainerFormatGif;
    if (suffix == "jpg") return &GUID_ContainerFormatJpeg;
    if (suffix == "png") return &GUID_ContainerFormatPng;
    return nullptr;
}

/// The first frame of a picture file in memory; null when the bytes are none in this format.
ComPtr<IWICBitmapFrameDecode> first_frame(IWICImagingFactory& factory, std::string& bytes,
                                          const GUID& format) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    const bool read =
        SUCCEEDED(factory.CreateStream(&stream)) &&
        SUCCEEDED(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(bytes.data()),
                                               static_cast<DWORD>(bytes.size()))) &&
        SUCCEEDED(factory.CreateDecoder(format, nullptr, &decoder)) &&
        SUCCEEDED(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand)) &&
        SUCCEEDED(decoder->GetFrame(0, &frame));
    return read ? frame : nullptr;
}

bool has_sound_size(IWICBitmapSource& picture, SIZE& size) {
    UINT width = 0;
    UINT height = 0;
    if (FAILED(picture.GetSize(&width, &height))) return false;
    size = {static_cast<LONG>(width), static_cast<LONG>(height)};
    return width > 0 && height > 0 && std::max(width, height) <= largest_side;
}

Bitmap pixels_of(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame) {
    SIZE size{};
    ComPtr<IWICFormatConverter> pixels;
    if (!has_sound_size(frame, size) || FAILED(factory.CreateFormatConverter(&pixels)) ||
        FAILED(pixels->Initialize(&frame, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                  nullptr, 0, WICBitmapPaletteTypeCustom))) {
        return {};
    }
    Bitmap bitmap(size);
    if (bitmap.empty()) return {};
    const auto stride = static_cast<UINT>(size.cx) * 4;
    const HRESULT copied = pixels->CopyPixels(nullptr, stride, stride * static_cast<UINT>(size.cy),
                                              reinterpret_cast<BYTE*>(bitmap.line(0)));
    return SUCCEEDED(copied) ? std::move(bitmap) : Bitmap();
}

}  // namespace

ImageReader::~ImageReader() {
    if (factory_) factory_->Release();
    if (joined_) system_function<decltype(CoUninitialize)>(com_, "CoUninitialize")();
}

Bitmap ImageReader::read(const std::string& path, bool optional) {
    std::string bytes;
    const std::error_code error = system_file_calls().read(path, largest_file, bytes);
    const bool missing = error == std::errc::no_such_file_or_directory;
    if (missing && optional) return {};
    Bitmap bitmap = error ? Bitmap() : decode(bytes, suffix_of(path));
    if (bitmap.empty()) {
        const char* trouble = missing ? "Bild nicht gefunden" : "Bild nicht lesbar";
        report_once(file_name(path), std::string(trouble) + " (" + path + ")");
    }
    return bitmap;
}

Bitmap ImageReader::decode(std::string& bytes, const std::string& suffix) {
    const GUID* format = format_of(suffix);
    if (!format || !is_whole_picture(bytes, suffix) || !decoders()) return {};
    const ComPtr<IWICBitmapFrameDecode> frame = first_frame(*decoders(), bytes, *format);
    return frame ? pixels_of(*decoders(), *frame.Get()) : Bitmap();
}

IWICImagingFactory* ImageReader::decoders() {
    if (com_) return factory_;
    com_ = system_library(L"ole32.dll");
    auto* join_com = system_function<decltype(CoInitializeEx)>(com_, "CoInitializeEx");
    auto* create = system_function<decltype(CoCreateInstance)>(com_, "CoCreateInstance");
    joined_ = join_com != nullptr && SUCCEEDED(join_com(nullptr, COINIT_APARTMENTTHREADED));
    if (joined_ && create) {
        create(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory_));
    }
    return factory_;
}

}  // namespace solvanta::win32
