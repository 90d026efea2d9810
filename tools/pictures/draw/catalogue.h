// Every picture file of the program: its name, its size and what is drawn in it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "painter.h"

namespace solvanta::pictures {

// One picture within a file; only icon files hold several.
struct Frame {
    int width = 0;   // in points
    int height = 0;  // in points
    double scale = 1;
    unsigned bits_per_pixel = 24;  // 32: with alpha
    std::function<void(Painter&)> draw;
    bool exact = false;  // every colour is kept: another file shows a part of the picture
};

struct PictureFile {
    std::string name;
    std::vector<Frame> frames;
};

// How many pixels to the point the largest files of a picture have.
inline constexpr int largest_scale = 4;

// All files that the program ships, each picture at one pixel to the point and, as PNG, at two up
// to the largest scale.
std::vector<PictureFile> catalogue();

// The file's content. Throws std::runtime_error when a part is missing or the format unknown.
Bytes render(const PictureFile& file, PartLibrary& library);

// The pictures in the bytes of a file of that name. Throws std::runtime_error when the bytes
// are not of the format that the name's ending says.
std::vector<Image> decode(const std::string& name, const Bytes& bytes);

}  // namespace solvanta::pictures
