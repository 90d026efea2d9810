#include "catalogue.h"

#include <array>
#include <stdexcept>

#include "bmp.h"
#include "cards.h"
#include "codecs.h"
#include "ico.h"

namespace solvanta::pictures {

namespace {

constexpr int card_columns = static_cast<int>(card_width);
constexpr int card_rows = static_cast<int>(card_height);
constexpr std::array<int, 7> icon_sides{16, 24, 32, 48, 64, 128, 256};
constexpr int paletted_icon_side = 48;

// Below this side the icon is drawn from a simpler part made for few pixels.
constexpr int full_icon_side = 32;

void add_picture(std::vector<PictureFile>& files, const std::string& stem,
                 const std::string& ending, Frame frame) {
    files.push_back({stem + ending, {frame}});
    for (int scale = 2; scale <= largest_scale; ++scale) {
        frame.scale = scale;
        files.push_back({stem + "@" + std::to_string(scale) + "x.png", {frame}});
    }
}

// A picture that is one part, as large as the file.
Frame part_frame(const std::string& part, int width, int height, unsigned bits_per_pixel) {
    const auto draw = [=](Painter& painter) {
        if (bits_per_pixel == 24) {
            painter.fill(table_green);
        }
        painter.place(part, {0, 0, static_cast<double>(width), static_cast<double>(height)});
    };
    return {width, height, 1, bits_per_pixel, draw};
}

void add_faces(std::vector<PictureFile>& files) {
    for (std::size_t suit = 0; suit < suit_words.size(); ++suit) {
        for (std::size_t rank = 0; rank < rank_words.size(); ++rank) {
            const Card card{suit, rank};
            const auto draw = [card](Painter& painter) { draw_face(painter, card); };
            const std::string stem =
                std::string(suit_words[suit]) + "_" + std::string(rank_words[rank]);
            add_picture(files, stem, ".bmp", {card_columns, card_rows, 1, 24, draw});
        }
    }
}

Frame icon_frame(int side, unsigned bits_per_pixel) {
    Frame frame = part_frame(side < full_icon_side ? "icon_small" : "icon", side, side, 32);
    frame.bits_per_pixel = bits_per_pixel;
    return frame;
}

void add_icons(std::vector<PictureFile>& files) {
    PictureFile icon{"Solvanta.ico", {}};
    for (const int side : icon_sides) {
        icon.frames.push_back(icon_frame(side, 32));
        if (side == paletted_icon_side) {
            icon.frames.push_back(icon_frame(side, 8));
        }
        std::string name = "Solvanta";
        if (side != icon_sides.back()) {
            name.append("-").append(std::to_string(side));
        }
        files.push_back({name.append(".png"), {icon_frame(side, 32)}});
    }
    files.push_back(icon);
}

bool ends_with(const std::string& name, const std::string& ending) {
    return name.size() >= ending.size() &&
           name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

Image draw_frame(const Frame& frame, PartLibrary& library) {
    const Canvas canvas(frame.width, frame.height, frame.scale);
    Painter painter(canvas.context(), library);
    frame.draw(painter);
    return canvas.image();
}

Bytes render_icon(const PictureFile& file, PartLibrary& library) {
    std::vector<IconEntry> entries;
    for (const Frame& frame : file.frames) {
        entries.push_back({draw_frame(frame, library), frame.bits_per_pixel});
    }
    return encode_ico(entries);
}

}  // namespace

std::vector<PictureFile> catalogue() {
    std::vector<PictureFile> files;
    add_faces(files);
    add_picture(files, "Leer", ".bmp", {card_columns, card_rows, 1, 24, draw_empty_place});
    add_picture(files, "Back_ganz", ".bmp", {card_columns, card_rows, 1, 24, draw_back, true});
    add_picture(files, "Back_verdeckt", ".bmp",
                {card_columns, static_cast<int>(back_strip_height), 1, 24, draw_back});
    add_picture(files, "zeiger", ".bmp", part_frame("zeiger", 45, 24, 32));
    add_picture(files, "diddle", ".jpg", part_frame("win", 228, 242, 24));
    add_picture(files, "skull", ".gif", part_frame("skull", 188, 140, 24));
    add_icons(files);
    return files;
}

Bytes render(const PictureFile& file, PartLibrary& library) {
    if (ends_with(file.name, ".ico")) {
        return render_icon(file, library);
    }
    const Image image = draw_frame(file.frames.front(), library);
    if (ends_with(file.name, ".bmp")) {
        return file.frames.front().bits_per_pixel == 32 ? encode_bmp_32(image)
                                                        : encode_bmp_24(image);
    }
    if (ends_with(file.name, ".jpg")) {
        return encode_jpeg(image);
    }
    if (ends_with(file.name, ".gif")) {
        return encode_gif(image);
    }
    if (ends_with(file.name, ".png")) {
        return encode_png(image, file.frames.front().exact);
    }
    throw std::runtime_error(file.name + ": no such picture format");
}

std::vector<Image> decode(const std::string& name, const Bytes& bytes) {
    if (ends_with(name, ".ico")) {
        std::vector<Image> images;
        for (IconEntry& entry : decode_ico(bytes)) {
            images.push_back(std::move(entry.image));
        }
        return images;
    }
    if (ends_with(name, ".bmp")) {
        return {decode_bmp(bytes)};
    }
    if (ends_with(name, ".jpg")) {
        return {decode_jpeg(bytes)};
    }
    if (ends_with(name, ".gif")) {
        return {decode_gif(bytes)};
    }
    if (ends_with(name, ".png")) {
        return {decode_png(bytes)};
    }
    throw std::runtime_error(name + ": no such picture format");
}

}  // namespace solvanta::pictures
