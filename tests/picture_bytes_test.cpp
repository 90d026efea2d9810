#include "front_ends/common/picture_bytes.h"

#include <string>

#include <gtest/gtest.h>

namespace solvanta::test {
namespace {

using namespace std::string_literals;

/// A bitmap's header for two lines of three pixels, whose own count of bytes is wrong.
std::string bitmap(char bits, char compression, char pixel_bytes) {
    const std::string sides =
        "BM\x07\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x03\0\0\0\xFE\xFF\xFF\xFF\x01\0"s;
    return sides + bits + "\0"s + compression + "\0\0\0"s + pixel_bytes + std::string(19, '\0');
}

TEST(PictureBytes, AreWholeUpToTheEndOfThePicture) {
    const std::string gif_header = "GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0"s;
    const struct {
        const char* name;
        const char* suffix;
        std::string bytes;
    } cases[] = {
        {"32 bits", "bmp", bitmap(32, 0, 0) + std::string(24, 'x')},
        {"1 bit, lines padded", "bmp", bitmap(1, 0, 0) + std::string(8, 'x')},
        {"run lengths", "bmp", bitmap(8, 1, 9) + std::string(9, 'x')},
        {"old header", "bmp",
         "BM\0\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\x03\0\x02\0\x01\0\x18\0"s + std::string(24, 'x')},
        {"global colours, extensions", "gif",
         gif_header + "!\xF9\4\1\0\0\0\0!\xFE\2ab\1c\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0"s},
        {"local colours", "gif",
         "GIF89a\1\0\1\0\0\0\0,\0\0\0\0\1\0\1\0\x81"s + std::string(12, 'x') + "\2\2\x44\1\0"s},
        {"end mark in a thumbnail and in pixels", "jpg",
         "\xFF\xD8\xFF\xE1\1\2\xFF\xD9"s + std::string(254, 'z') +
             "\xFF\xFF\xDA\0\x03xab\xFF\0\xD9\xFF\xD0y\xFF\xD9"s},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(is_whole_picture(c.bytes, c.suffix)) << c.name;
        EXPECT_TRUE(is_whole_picture(c.bytes + "\0\0 and more"s, c.suffix)) << c.name;
        for (std::size_t length = 0; length < c.bytes.size(); ++length) {
            EXPECT_FALSE(is_whole_picture(c.bytes.substr(0, length), c.suffix))
                << c.name << ", " << length << " bytes";
        }
    }
    EXPECT_FALSE(is_whole_picture(gif_header + ";"s, "gif"));
    std::string vast = bitmap(0, 0, 0);
    vast[20] = 1;  // 65,536 pixels and more to a line
    EXPECT_FALSE(is_whole_picture(vast, "bmp"));
    EXPECT_TRUE(is_whole_picture("", "png"));
}

TEST(PictureBytes, NeedNoDecoderInAPlainBitmap) {
    std::string plain = bitmap(24, 0, 0) + std::string(24, 'x');
    plain.replace(22, 4, "\2\0\0\0"s);
    const auto found = plain_bitmap(plain, 3);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->width, 3);
    EXPECT_EQ(found->height, 2);
    EXPECT_EQ(found->start, 54U);
    EXPECT_EQ(found->line_bytes, 12U);
    EXPECT_FALSE(plain_bitmap(plain, 2)) << "too wide";
    EXPECT_FALSE(plain_bitmap(plain.substr(0, plain.size() - 1), 3)) << "cut short";
    const struct {
        const char* name;
        std::size_t place;
        char byte;
    } others[] = {
        {"no bitmap", 1, 'm'}, {"other header", 14, 12},   {"no width", 18, 0},
        {"no height", 22, 0},  {"top line first", 25, -1}, {"two planes", 26, 2},
        {"32 bits", 28, 32},   {"compressed", 30, 1},
    };
    for (const auto& other : others) {
        std::string bytes = plain + std::string(100, 'x');
        bytes[other.place] = other.byte;
        EXPECT_FALSE(plain_bitmap(bytes, 100)) << other.name;
    }
}

}  // namespace
}  // namespace solvanta::test
