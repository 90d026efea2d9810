// Puts vector parts onto a canvas.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include <librsvg/rsvg.h>

#include "canvas.h"

namespace solvanta::pictures {

// A rectangle in points.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// The vector sources of one directory; each is read once, when first asked for.
class PartLibrary {
  public:
    explicit PartLibrary(std::filesystem::path directory);

    // The part in the file `name`.svg. Throws std::runtime_error when it cannot be read.
    RsvgHandle* part(const std::string& name);

    // The colour in the middle of a part, which is the ink of a suit symbol.
    Pixel ink(const std::string& name);

  private:
    struct HandleReleaser {
        void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    };

    std::filesystem::path directory_;
    std::map<std::string, std::unique_ptr<RsvgHandle, HandleReleaser>> parts_;
};

// Draws parts of a library in points. Every function throws std::runtime_error when a part is
// missing or cannot be rendered.
class Painter {
  public:
    Painter(cairo_t* context, PartLibrary& library) : context_(context), library_(library) {}

    cairo_t* context() const { return context_; }

    // Fits the part into the box.
    void place(const std::string& name, const Box& box);

    // As place(), turned upside down about the middle of the box.
    void place_turned(const std::string& name, const Box& box);

    // As place(), but uses only the part's shape and fills it with the ink of another part.
    void place_in_ink_of(const std::string& inked_part, const std::string& name, const Box& box);

    void fill(const Pixel& colour);

  private:
    cairo_t* context_;
    PartLibrary& library_;
};

// Turns the drawing by half a turn about the middle of an area for as long as it lives.
class HalfTurn {
  public:
    HalfTurn(cairo_t* context, double width, double height);
    ~HalfTurn();
    HalfTurn(const HalfTurn&) = delete;
    HalfTurn& operator=(const HalfTurn&) = delete;

  private:
    cairo_t* context_;
};

}  // namespace solvanta::pictures
