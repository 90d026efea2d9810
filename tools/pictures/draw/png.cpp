#include <algorithm>
#include <stdexcept>

#include "canvas.h"
#include "codecs.h"

namespace solvanta::pictures {

namespace {

struct Source {
    const Bytes& file;
    std::size_t position = 0;
};

cairo_status_t append(void* closure, const unsigned char* data, unsigned size) {
    auto& file = *static_cast<Bytes*>(closure);
    file.insert(file.end(), data, data + size);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t take(void* closure, unsigned char* data, unsigned size) {
    auto& source = *static_cast<Source*>(closure);
    if (source.file.size() - source.position < size) {
        return CAIRO_STATUS_READ_ERROR;
    }
    std::copy_n(source.file.begin() + static_cast<std::ptrdiff_t>(source.position), size, data);
    source.position += size;
    return CAIRO_STATUS_SUCCESS;
}

// Opaque pictures come back in a format without alpha, whose fourth byte means nothing.
Image argb_image(cairo_surface_t* loaded) {
    Image image = image_of(loaded);
    if (cairo_image_surface_get_format(loaded) == CAIRO_FORMAT_RGB24) {
        const Canvas canvas(image.width, image.height, 1.0);
        cairo_set_source_surface(canvas.context(), loaded, 0, 0);
        cairo_paint(canvas.context());
        image = canvas.image();
    }
    return image;
}

}  // namespace

Bytes encode_png(const Image& image) {
    const Surface surface = surface_of(image);
    Bytes file;
    if (cairo_surface_write_to_png_stream(surface.get(), append, &file) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("PNG picture cannot be written");
    }
    return file;
}

Image decode_png(const Bytes& file) {
    Source source{file};
    const Surface surface(cairo_image_surface_create_from_png_stream(take, &source));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("not a PNG file");
    }
    return argb_image(surface.get());
}

}  // namespace solvanta::pictures
