// Holds the shipped picture files to what the table and the player need of them.
#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "bmp.h"
#include "catalogue.h"
#include "files.h"
#include "ico.h"

namespace {

using namespace solvanta::pictures;

const std::filesystem::path shipped = SOLVANTA_SHIPPED_PICTURES;
const std::array<std::string, 4> suits{"Herz", "Pick", "Karo", "Kreuz"};

// A face-up card beneath others shows its top 16 rows; the index must end within 15.
constexpr int index_rows = 15;
constexpr int index_columns = 27;

Image load(const std::string& name) {
    return decode(name, read_file(shipped / name)).front();
}

Pixel paper_of(const Image& face) {
    return face.at(3, 20);
}

/// The cards' faces, with "" or "@2x" behind their names.
std::map<std::string, Image> faces(const std::string& scale) {
    std::map<std::string, Image> all;
    for (const std::string& suit : suits) {
        for (const char* rank :
             {"_1", "_2", "_3", "_4", "_5", "_6", "_7", "_8", "_9", "_10", "_B", "_D", "_K"})
            all[suit + rank] = load(std::string(suit).append(rank).append(scale).append(".bmp"));
    }
    return all;
}

TEST(ShippedPictures, AreAllThereInTheirFormats) {
    std::map<std::string, std::tuple<std::string, int, int, unsigned>> formats{
        {"Leer", {".bmp", 72, 96, 24}},         {"Back_ganz", {".bmp", 72, 96, 24}},
        {"Back_verdeckt", {".bmp", 72, 8, 24}}, {"zeiger", {".bmp", 45, 24, 32}},
        {"diddle", {".jpg", 228, 242, 0}},      {"skull", {".gif", 188, 140, 0}}};
    for (const auto& face : faces(""))
        formats[face.first] = {".bmp", 72, 96, 24};
    for (const auto& [stem, format] : formats) {
        for (const int scale : {1, 2}) {
            const auto& [ending, width, height, bits] = format;
            const std::string name = std::string(stem).append(scale == 2 ? "@2x" : "") + ending;
            const Image image = load(name);
            EXPECT_TRUE(image.width == width * scale && image.height == height * scale) << name;
            const Bytes bytes = read_file(shipped / name);
            EXPECT_TRUE(bits == 0 || read_bmp_header(bytes).bits_per_pixel == bits) << name;
        }
    }
}

TEST(ShippedPictures, IconHoldsEverySizeAndThe256Colours) {
    using Kinds = std::set<std::pair<int, unsigned>>;
    Kinds found;
    for (const IconEntry& entry : decode_ico(read_file(shipped / "Solvanta.ico"))) {
        found.insert({entry.image.width, entry.bits_per_pixel});
        EXPECT_EQ(entry.image.at(0, 0).alpha, 0);
        EXPECT_EQ(entry.image.at(entry.image.width / 2, entry.image.height / 2).alpha, 255);
    }
    EXPECT_EQ(
        found,
        (Kinds{{16, 32}, {24, 32}, {32, 32}, {48, 8}, {48, 32}, {64, 32}, {128, 32}, {256, 32}}));
}

TEST(ShippedPictures, StandOnTheTableAsIfTheyWereOfIt) {
    for (const std::string scale : {"", "@2x"}) {
        const Image pointer = load("zeiger" + scale + ".bmp");
        EXPECT_EQ(pointer.at(0, 0).alpha, 0);
        EXPECT_EQ(pointer.at(pointer.width / 2, pointer.height / 2).alpha, 255);
        auto cards = faces(scale);
        cards["Leer"] = load("Leer" + scale + ".bmp");
        const Image back = cards["Back_ganz"] = load("Back_ganz" + scale + ".bmp");
        for (const auto& [name, card] : cards) {
            for (const int x : {0, card.width - 1}) {
                for (const int y : {0, card.height - 1})
                    EXPECT_EQ(card.at(x, y), table_green) << name << scale;
            }
        }
        // The strip is the back's top, and the card below goes on where it ends.
        const Image strip = load("Back_verdeckt" + scale + ".bmp");
        EXPECT_TRUE(std::equal(strip.pixels.begin(), strip.pixels.end(), back.pixels.begin()));
    }
}

// How many pixels of the indexes clearly differ.
int strip_difference(const Image& first, const Image& second) {
    int pixels = 0;
    for (int place = 0; place < index_rows * index_columns; ++place) {
        const auto grey = [&](const Image& face) {
            return grey_of(face.at(place % index_columns, place / index_columns));
        };
        pixels += std::abs(grey(first) - grey(second)) > 64 ? 1 : 0;
    }
    return pixels;
}

TEST(ShippedPictures, StripsTellTheirCardsInGrey) {
    const auto all = faces("");
    for (const auto& [name, face] : all) {
        for (const auto& [other_name, other] : all)
            EXPECT_TRUE(name == other_name || strip_difference(face, other) >= 15)
                << name << " and " << other_name;
        for (int x = 4; x < index_columns; ++x) {
            for (const int y : {1, 2, index_rows, index_rows + 1}) {
                EXPECT_LT(contrast_ratio(face.at(x, y), paper_of(face)), 1.2)
                    << name << ": the index is cut at " << x << "," << y;
            }
        }
    }
}

TEST(ShippedPictures, InksAreReadableAndSuitsOfOneColourDiffer) {
    std::vector<Pixel> inks;  // what stands out most in the index
    for (const std::string& suit : suits) {
        const Image face = load(suit + "_8.bmp");
        const auto contrast = [&](int place) {
            return contrast_ratio(face.at(3 + place % 24, 2 + place / 24), paper_of(face));
        };
        int best = 0;
        for (int place = 1; place < 24 * (index_rows - 2); ++place) {
            if (contrast(place) > contrast(best)) best = place;
        }
        EXPECT_GE(contrast(best), 4.5) << suit;
        inks.push_back(face.at(3 + best % 24, 2 + best / 24));
    }
    for (const std::size_t suit : {0U, 1U}) {
        const Pixel& one = inks[suit];
        const Pixel& other = inks[suit + 2];
        EXPECT_GE(std::abs(one.red - other.red) + std::abs(one.green - other.green) +
                      std::abs(one.blue - other.blue),
                  60)
            << suits.at(suit);
    }
}

}  // namespace
