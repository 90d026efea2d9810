#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "rich_text/rtf_reader.h"

namespace solvanta {
namespace {

using namespace std::string_view_literals;

std::string repeated(std::string_view piece, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += piece;
    return all;
}

/// The document's text with "|" between paragraphs.
std::string text_of(std::string_view rtf) {
    const RichDocument document = read_rtf(rtf).value();
    std::string text;
    const char* separator = "";
    for (const RichParagraph& paragraph : document.paragraphs) {
        text += std::exchange(separator, "|");
        for (const TextRun& run : paragraph.runs)
            text += run.text;
    }
    return text;
}

/// The look of the run with the character "x", in the order of the conditions below.
std::string look_of_x(std::string_view rtf) {
    const RichDocument document = read_rtf(rtf).value();
    CharacterLook look;
    for (const TextRun& run : document.paragraphs.back().runs) {
        if (run.text.find('x') != std::string::npos) look = run.look;
    }
    std::string text;
    if (look.font) text += ' ' + document.fonts.at(*look.font).family;
    if (look.half_points) text += ' ' + std::to_string(*look.half_points);
    if (look.font && document.fonts[*look.font].kind == FontKind::FixedPitch) text += " fixed";
    if (look.bold) text += " bold";
    if (look.italic) text += " italic";
    if (look.underline) text += " underline";
    if (look.strike) text += " strike";
    if (look.script == Script::Super) text += " super";
    const auto add = [&text](const char* what, const std::optional<Color>& color) {
        if (!color) return;
        for (const int channel : {color->red, color->green, color->blue})
            text += std::exchange(what, ".") + std::to_string(channel);
    };
    add(" ", look.ink);
    add(" on ", look.paper);
    return text.substr(text.empty() ? 0 : 1);
}

/// The layout of the last paragraph: alignment, indents, spaces, line spacing, tab stops.
std::string layout_of_last(std::string_view rtf) {
    const ParagraphLayout layout = read_rtf(rtf).value().paragraphs.back().layout;
    constexpr std::string_view letters = "lrcj";
    std::string text(1, letters[static_cast<std::size_t>(layout.alignment)]);
    for (const Twips length : {layout.left, layout.right, layout.first_line, layout.before,
                               layout.after, layout.line_spacing}) {
        text += ' ' + std::to_string(length);
    }
    if (layout.line_spacing_factor) text += " factor";
    for (const TabStop& tab : layout.tabs) {
        text += std::string(" tab ") + letters[static_cast<std::size_t>(tab.alignment)];
        text += std::to_string(tab.position);
    }
    return text;
}

using Table = std::vector<std::pair<std::string_view, std::string_view>>;

void expect(std::string (*shown)(std::string_view), const Table& table) {
    for (const auto& [rtf, expected] : table)
        EXPECT_EQ(shown(rtf), expected) << rtf;
}

TEST(RichText, ShowsTheText) {
    expect(
        text_of,
        {
            {"{}", ""},
            {"{text}", "text"},
            {R"({\rtf1\ansi\ansicpg1252\deff0 a  b   c})", "a  b   c"},
            {"{one\r\nword\n}", "oneword"},
            {R"({a\par b\par })", "a|b"},
            {R"({a\par\par})", "a|"},
            {R"({\par\par z})", "||z"},
            {R"({a\line b\tab c\page d})", "a\u2028b\tc|d"},
            {"{a\\\nb\\\tc}", "a|b\tc"},
            {R"({\{\}\\})", "{}\\"},
            {R"({\'84L\'f6schen\'93 \'80 \'81})", "„Löschen“ € \uFFFD"},
            {"{\xfc}", "ü"},
            {R"({\u9829?\u-10179?\u-8704?\u128514?!})", "♥😀😂!"},
            {R"({\uc0\u9829 a\uc2\u9824\'3f?b\uc3\u9830{}c})", "♥a♠b♦c"},
            {R"({{\uc0\u9829}\u9824??})", "♥♠?"},
            {R"({\u9829\u9824?{\u9830}a}b)", "♥♠♦a"},
            {R"({\u9829\bin3 ?{}x})", "♥x"},
            {R"({\u55357?x\u56834?\b\u55357?})", "\uFFFDx\uFFFD\uFFFD"},
            {R"({\u8233?\u64976?\u65535?\u0?\u13?a})", "\uFFFD\uFFFD\uFFFDa"},
            {R"({a\~b\_c\-d})", "a\u00A0b\u2011c\u00ADd"},
            {R"({\lquote a\rquote\ldblquote b\rdblquote\endash\emdash\bullet})", "‘a’“b”–—•"},
            {R"({{\info{\title no}}{\stylesheet{\s0 no;}}{\header no}{\pict 00ff}{\*\own{a}b}yes)",
             "yes"},
            {R"({\field{\*\fldinst HYPERLINK "no"}{\fldrslt shown}}{\object no}{\v no})", "shown"},
            {R"({\pard{\pntext\f0\'95\tab}{\*\pn\pnlvlblt{\pntxtb\'95}}a\par{\listtext 2.\tab}b})",
             "•\ta|2.\tb"},
            {R"({{\fonttbl{\f7\fcharset2 Own;}}{\f7\'b7}\'b7})", "•·"},
            {"{{\\*\\own a\\\nb}c}", "c"},
            {R"({\bin4 }}}}a\bin-3 b)", "ab"},
            {"{a}b{c}", "a"},
            {"{a{b{c", "abc"},
            {"{a\0b}"sv, "ab"},
            {R"({\'4})", "4"},
            {R"({\'zz\'4g\')", "zz4g"},
            {"{a\\", "a"},
            {R"({\b9999999999999\fs-99999999999999\li99999999999\u99999999999?a})", "\uFFFDa"},
        });
}

TEST(RichText, GivesCharactersTheirLook) {
    expect(look_of_x,
           {
               {"{x}", ""},
               {R"({\f0\cf1\highlight1 x})", ""},
               {R"({\fs20 x})", "20"},
               {R"({{\fonttbl{\f0\fswiss Arial;}}x})", "Arial 24"},
               {R"({\deff1{\fonttbl\f0 Arial;\f1\froman Times New Roman;}\fs21 x})",
                "Times New Roman 21"},
               {R"({{\fonttbl{\f0 Arial;}{\f1\fmodern{\*\falt y}Own;}}\f1 x})", "Own 24 fixed"},
               {R"({{\fonttbl{\f0 y}\f1 z\f2 Own}\f2 x})", "Own 24"},
               {R"({{\*\own\fonttbl{\f0 Arial;}}x})", ""},
               {R"({{\fonttbl{\f0 Courier New;}}\b\i\fs2\plain x})", "Courier New 24 fixed"},
               {R"({\fs1000000 x})", "400"},
               {R"({\fs0 x})", "2"},
               {R"({\b\i\ul\strike x})", "bold italic underline strike"},
               {R"({\b\i\ul\b0\i0\ulnone x})", ""},
               {R"({{\b\i y}\ul x})", "underline"},
               {R"({\super x})", "super"},
               {R"({{\colortbl;\red255\green0\blue0;}\cf1\highlight1 x})", "255.0.0 on 255.0.0"},
               {R"({{\colortbl;\red300\green-5\blue16;}\cf1 x})", "255.0.16"},
               {R"({{\colortbl\red1\green2\blue3;}\cf0\cb0 x})", "1.2.3"},
               {R"({{\colortbl;\red1;;}\cf2 x})", ""},
               {R"({{\colortbl;\red1;}\cf1\cf0\cb99 x})", ""},
           });

    // 300 groups deep, 40 of them closed again: still within what the deepest ones share.
    EXPECT_EQ(look_of_x(repeated("{", 300) + "\\b y" + repeated("}", 40) + "x"), "bold");
}

TEST(RichText, LaysParagraphsOut) {
    expect(layout_of_last,
           {
               {"{a}", "l 0 0 0 0 0 0"},
               {R"({\qc\li720\ri360\fi-360\sb60\sa120 a})", "c 720 360 -360 60 120 0 tab l360"},
               {R"({\qr a\par\pard\sb30 b})", "l 0 0 0 30 0 0"},
               {R"({\qj\sa60 a\par\sb30 b})", "j 0 0 0 30 60 0"},
               {R"({\qr{\qc a}\par})", "r 0 0 0 0 0 0"},
               {R"({\li300\fi-9000\ri-50 a})", "l 300 0 -300 0 0 0 tab l300"},
               {R"({\li99999999999\sb99999999999 a})", "l 3600 0 0 2880 0 0"},
               {R"({\li-99999999999 a})", "l 0 0 0 0 0 0"},
               {R"({\sl360\slmult1 a})", "l 0 0 0 0 0 360 factor"},
               {R"({\sl-300 a})", "l 0 0 0 0 0 -300"},
               {R"({\sl9999 a})", "l 0 0 0 0 0 4800"},
               {R"({\li100\tqr\tx900\tx500\tqc\tx50 a})", "l 100 0 0 0 0 0 tab l400 tab r800"},
               {R"({\tqc\pard\tx500 a})", "l 0 0 0 0 0 0 tab l500"},
           });
}

TEST(RichText, IsNothingElse) {
    for (const std::string_view bytes : {""sv, "text"sv, R"(\rtf1)"sv, "}"sv, "\0{a}"sv})
        EXPECT_FALSE(read_rtf(bytes)) << bytes;
}

// Without its limits the reader would not come to an end on these.
TEST(RichText, KeepsItsLimits) {
    const int million = 1'000'000;
    struct {
        const char* name;
        std::string rtf;
        std::size_t least, most;  // length of the text
    } const table[]{
        {"open groups", repeated("{", million) + "a", 1, 1},
        {"nested groups", repeated("{", 1000) + "\\b a" + repeated("}", 999) + "b}c", 2, 2},
        {"closed groups", "{" + repeated("{}", million) + "a}", 1, 1},
        {"skipped groups", R"({\*)" + repeated("{a", million), 0, 0},
        {"broken bytes", "{" + repeated("\\'", million) + "a", 1, 1},
        {"fonts", R"({{\fonttbl)" + repeated("\\f123456 a;", 100'000) + "}a", 1, 1},
        {"colours", R"({{\colortbl)" + repeated(";", million) + "}a", 1, 1},
        {"tabs", "{" + repeated("\\tx9\\par", million / 10), 99'999, 99'999},
        {"paragraphs", "{" + repeated("\\par", million), 99'999, 99'999},
        {"looks", "{" + repeated("\\b a\\b0 a", million / 10), million / 5, million / 5 + 100},
        {"long word", "{" + repeated("a", 3 * million), 1 << 20, (1 << 20) + 256},
        {"long source", "{" + repeated("{\\v a}", million) + "a", 0, 0},
    };
    for (const auto& [name, rtf, least, most] : table) {
        const std::size_t shown = text_of(rtf).size();
        EXPECT_GE(shown, least) << name;
        EXPECT_LE(shown, most) << name;
    }
}

TEST(Help, ReadsWholeInAnyWordProcessorsAlphabet) {
    const auto root = std::filesystem::path(__FILE__).parent_path().parent_path();
    std::ifstream file(root / "shipped" / "Help.rtf", std::ios::binary);
    const std::string rtf{std::istreambuf_iterator<char>(file), {}};
    for (const char c : rtf)
        ASSERT_TRUE(c == '\n' || c == '\r' || (c >= ' ' && c <= '~'));
    const std::string text = text_of(rtf);
    for (const std::string_view wanted : {"„neues Spiel“", "„Bestzeiten“", "„Hilfe“", "„Beenden“",
                                          "„Löschen“", "„Ok“", "♥", "♠", "♦", "♣"}) {
        EXPECT_NE(text.find(wanted), text.npos) << wanted;
    }
    EXPECT_EQ(text.find("\uFFFD"), text.npos);
    EXPECT_EQ(text.find_first_of("{}\\"), text.npos);
}

}  // namespace
}  // namespace solvanta
