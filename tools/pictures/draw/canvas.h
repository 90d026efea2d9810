// Drawing in picture points onto a pixel surface.
#pragma once

#include <memory>

#include <cairo.h>

#include "image.h"

namespace solvanta::pictures {

struct SurfaceDestroyer {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

struct ContextDestroyer {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

using Surface = std::unique_ptr<cairo_surface_t, SurfaceDestroyer>;

// A transparent surface of width x height points, `scale` pixels to the point both ways.
class Canvas {
  public:
    // Throws std::runtime_error when the surface cannot be made.
    Canvas(double width, double height, double scale);

    // The drawing context; its unit is the point, its origin the top-left corner.
    cairo_t* context() const { return context_.get(); }

    // The pixels drawn so far.
    Image image() const;

  private:
    Surface surface_;
    std::unique_ptr<cairo_t, ContextDestroyer> context_;
};

// Between pictures and the renderer's own surfaces, whose colour is multiplied by alpha.
Image image_of(cairo_surface_t* surface);
Surface surface_of(const Image& image);

}  // namespace solvanta::pictures
