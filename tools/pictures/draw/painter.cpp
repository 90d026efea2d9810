#include "painter.h"

#include <stdexcept>

namespace solvanta::pictures {

namespace {

std::runtime_error failure(const std::string& name, GError* error) {
    std::string text = name + ".svg";
    if (error != nullptr) {
        text += std::string(": ") + error->message;
        g_error_free(error);
    }
    return std::runtime_error(text);
}

void set_source(cairo_t* context, const Pixel& colour) {
    cairo_set_source_rgba(context, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0,
                          colour.alpha / 255.0);
}

}  // namespace

PartLibrary::PartLibrary(std::filesystem::path directory) : directory_(std::move(directory)) {}

RsvgHandle* PartLibrary::part(const std::string& name) {
    const auto known = parts_.find(name);
    if (known != parts_.end()) {
        return known->second.get();
    }
    GError* error = nullptr;
    RsvgHandle* handle =
        rsvg_handle_new_from_file((directory_ / (name + ".svg")).string().c_str(), &error);
    if (handle == nullptr) {
        throw failure(name, error);
    }
    parts_[name].reset(handle);
    return handle;
}

Pixel PartLibrary::ink(const std::string& name) {
    constexpr int side = 65;
    const Canvas canvas(side, side, 1.0);
    Painter(canvas.context(), *this).place(name, {0, 0, side, side});
    return canvas.image().at(side / 2, side / 2);
}

void Painter::place(const std::string& name, const Box& box) {
    const RsvgRectangle area{box.left, box.top, box.width, box.height};
    GError* error = nullptr;
    if (rsvg_handle_render_document(library_.part(name), context_, &area, &error) == FALSE) {
        throw failure(name, error);
    }
}

void Painter::place_turned(const std::string& name, const Box& box) {
    const HalfTurn turn(context_, 2 * box.left + box.width, 2 * box.top + box.height);
    place(name, box);
}

void Painter::place_in_ink_of(const std::string& inked_part, const std::string& name,
                              const Box& box) {
    cairo_push_group(context_);
    place(name, box);
    cairo_pattern_t* shape = cairo_pop_group(context_);
    set_source(context_, library_.ink(inked_part));
    cairo_mask(context_, shape);
    cairo_pattern_destroy(shape);
}

void Painter::fill(const Pixel& colour) {
    set_source(context_, colour);
    cairo_paint(context_);
}

HalfTurn::HalfTurn(cairo_t* context, double width, double height) : context_(context) {
    cairo_save(context_);
    cairo_translate(context_, width, height);
    cairo_scale(context_, -1.0, -1.0);
}

HalfTurn::~HalfTurn() {
    cairo_restore(context_);
}

}  // namespace solvanta::pictures
