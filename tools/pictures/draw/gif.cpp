#include <algorithm>
#include <memory>
#include <stdexcept>

#include <gif_lib.h>

#include "codecs.h"
#include "quantise.h"

namespace solvanta::pictures {

namespace {

struct Closer {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

struct MapFreer {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

struct Source {
    const Bytes& file;
    std::size_t position = 0;
};

int append(GifFileType* gif, const GifByteType* data, int size) {
    auto& file = *static_cast<Bytes*>(gif->UserData);
    file.insert(file.end(), data, data + size);
    return size;
}

int take(GifFileType* gif, GifByteType* data, int size) {
    auto& source = *static_cast<Source*>(gif->UserData);
    const std::size_t count =
        std::min(static_cast<std::size_t>(size), source.file.size() - source.position);
    std::copy_n(source.file.begin() + static_cast<std::ptrdiff_t>(source.position), count, data);
    source.position += count;
    return static_cast<int>(count);
}

// The library wants palettes of 2, 4, ... 256 colours.
std::unique_ptr<ColorMapObject, MapFreer> make_map(const std::vector<Pixel>& palette) {
    int size = 2;
    while (size < static_cast<int>(palette.size())) {
        size *= 2;
    }
    std::unique_ptr<ColorMapObject, MapFreer> map(GifMakeMapObject(size, nullptr));
    if (!map) {
        throw std::runtime_error("GIF palette cannot be made");
    }
    for (std::size_t i = 0; i < palette.size(); ++i) {
        map->Colors[i] = {palette[i].red, palette[i].green, palette[i].blue};
    }
    return map;
}

bool write_frame(GifFileType* gif, IndexedImage& picture, ColorMapObject* map) {
    EGifSetGifVersion(gif, true);
    if (EGifPutScreenDesc(gif, picture.width, picture.height, 8, 0, map) == GIF_ERROR ||
        EGifPutImageDesc(gif, 0, 0, picture.width, picture.height, false, nullptr) == GIF_ERROR) {
        return false;
    }
    return EGifPutLine(gif, picture.indexes.data(), picture.width * picture.height) != GIF_ERROR;
}

void copy_frame(const GifFileType& gif, Image& image) {
    const SavedImage& frame = gif.SavedImages[0];
    const ColorMapObject* map =
        frame.ImageDesc.ColorMap != nullptr ? frame.ImageDesc.ColorMap : gif.SColorMap;
    if (map == nullptr || frame.ImageDesc.Width != image.width ||
        frame.ImageDesc.Height != image.height) {
        throw std::runtime_error("GIF frame does not fill the picture");
    }
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const int index = frame.RasterBits[i];
        if (index >= map->ColorCount) {
            throw std::runtime_error("GIF colour outside the palette");
        }
        const GifColorType& colour = map->Colors[index];
        image.pixels[i] = {colour.Red, colour.Green, colour.Blue, 255};
    }
}

}  // namespace

Bytes encode_gif(const Image& image) {
    IndexedImage picture = quantise(image, 256);
    const auto map = make_map(picture.palette);
    Bytes file;
    int error = 0;
    GifFileType* gif = EGifOpen(&file, append, &error);
    if (gif == nullptr) {
        throw std::runtime_error("GIF picture cannot be begun");
    }
    const bool written = write_frame(gif, picture, map.get());
    if (EGifCloseFile(gif, &error) == GIF_ERROR || !written) {
        throw std::runtime_error("GIF picture cannot be written");
    }
    return file;
}

Image decode_gif(const Bytes& file) {
    Source source{file};
    int error = 0;
    const std::unique_ptr<GifFileType, Closer> gif(DGifOpen(&source, take, &error));
    if (!gif || DGifSlurp(gif.get()) == GIF_ERROR || gif->ImageCount < 1) {
        throw std::runtime_error("not a GIF file");
    }
    Image image(gif->SWidth, gif->SHeight);
    copy_frame(*gif, image);
    return image;
}

}  // namespace solvanta::pictures
