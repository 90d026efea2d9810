#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "rich_text/rtf_reader.h"

namespace solvanta {
namespace {

using namespace std::string_literals;

std::string repeated(std::string_view piece, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += piece;
    return all;
}

/// Font with the number of its kind, size, first letters of the rest, colours.
std::string shown(const CharacterLook& look, const std::vector<RichFont>& fonts) {
    std::ostringstream text;
    if (look.font) text << fonts.at(*look.font).family << int(fonts[*look.font].kind) << ' ';
    if (look.half_points) text << *look.half_points;
    text << (look.bold ? "b" : "") << (look.italic ? "i" : "") << (look.underline ? "u" : "")
         << (look.strike ? "s" : "") << std::array{"", "^", "_"}.at(std::size_t(look.script));
    for (const auto& [mark, color] : {std::pair('#', look.ink), {'/', look.paper}})
        if (color) text << mark << +color->red << '.' << +color->green << '.' << +color->blue;
    return text.str();
}

/// Alignment, indents, spaces, line spacing, tab stops; nothing of the plain layout.
std::string shown(const ParagraphLayout& layout) {
    std::ostringstream text;
    text << '[' << "lrcj"[int(layout.alignment)];
    for (const Twips length : {layout.left, layout.right, layout.first_line, layout.before,
                               layout.after, layout.line_spacing})
        text << ' ' << length;
    if (layout.line_spacing_factor) text << " factor";
    for (const TabStop& tab : layout.tabs)
        text << ' ' << "lrc"[int(tab.alignment)] << tab.position;
    return text.str() == "[l 0 0 0 0 0 0" ? "" : text.str() + "]";
}

/// The text with "|" at each paragraph's end, layouts in "[]", looks in "<>" where they change.
std::string shown(std::string_view rtf) {
    const RichDocument document = read_rtf(rtf).value();
    std::string text;
    for (const RichParagraph& paragraph : document.paragraphs) {
        text += shown(paragraph.layout);
        std::string last;
        const auto add = [&](const std::string& run, const CharacterLook& characters) {
            const std::string look = shown(characters, document.fonts);
            if (std::exchange(last, look) != look) text += '<' + look + '>';
            text += run;
        };
        for (const TextRun& run : paragraph.runs)
            add(run.text, run.look);
        add("|", paragraph.mark);
    }
    return text;
}

void expect(const std::vector<std::pair<std::string, std::string>>& table) {
    for (const auto& [rtf, expected] : table)
        EXPECT_EQ(shown(rtf), expected) << rtf;
}

TEST(RichText, ShowsTheText) {
    expect({
        {"{}", ""},
        {"{one\r\nw\xf6rd\n}", "onewörd|"},
        {R"({\rtf1\ansi\ansicpg1252\deff0\azAZ1 a  b   c})", "a  b   c|"},
        {R"({\par a\par b\par\par\page\sect\row c\line\tab\cell})", "|a|b|||||c\u2028\t\t|"},
        {"{a\\\nb\\\rc\\\td}", "a|b|c\td|"},
        {R"({\{\~\}\_\\\-})", "{\u00A0}\u2011\\\u00AD|"},
        {R"({\'84L\'f6schen\'93 \'80\'81\'9D\'9f})", "„Löschen“ €\uFFFD\uFFFDŸ|"},
        {R"({\u-10179?\u-8704?\u9829?\u128514?!})", "😀♥😂!|"},
        {R"({\u127?\u128?\u2047?\u2048?\u-32768?\u65536?\u1114109?})",
         "\x7F\xC2\x80\u07FF\u0800\u8000\U00010000\U0010FFFD|"},
        {R"({\u1114112?\u-32769?\u1114111?\u8233?\u65532?\u65535?\u64975?\u64976?})",
         repeated("\uFFFD", 6) + "\uFDCF\uFFFD|"},
        {R"({\u65007?\u65008?\u0?\u13?\u55357?x\u56834?\b\u55357?\i\u56834?})",
         "\uFFFD\uFDF0\uFFFDx\uFFFD<b>\uFFFD<bi>\uFFFD|"},
        {R"({\uc0\u9829 a\uc2\u9824\'3f?b\uc3\u9830{}c\uc\u9829\tab d})", "♥a♠b♦c♥d|"},
        {R"({{\uc0\u9829}\u9824??\line})", "♥♠?\u2028|"},
        {R"({\u9829\u9824?{\u9830}a}b)", "♥♠♦a|"},
        {R"({\lquote a\rquote\ldblquote b\rdblquote\endash\emdash\bullet\enspace\emspace})",
         "‘a’“b”–—•\u2002\u2003|"},
        {R"({{\info{\title -}}{\stylesheet -}{\header -}{\pict 00}{\*\own{-}\par\'0a-}a{\v -}})",
         "a|"},
        {R"({\field{\*\fldinst HYPERLINK "no"}{\fldrslt shown}}{\object no})", "shown|"},
        {R"({\pard{\pntext\f0\'95\tab}{\*\pn\pnlvlblt{\pntxtb\'95}}a\par{\listtext 2.\tab}b})",
         "•\ta|2.\tb|"},
        {R"({\bin4 }}}}a\bin-3 b)", "ab|"},
        {"{a}b{c}", "a|"},
        {"{a{b\0{c"s, "abc|"},
        {R"({{\'4}\'zz\'4g\')", "4zz4g|"},
        // A paragraph that is too long is parted, but no pair is.
        {"{" + repeated("a", 4095) + R"(\u-10179?\u-8704?b)", repeated("a", 4095) + "😀|b|"},
        {"{" + repeated(R"(\u-10179?)", 4098), repeated("\uFFFD", 4097) + "|\uFFFD|"},
    });
}

TEST(RichText, GivesCharactersTheirLook) {
    expect({
        {R"({\f0\cf1\highlight1 x\fs20 y})", "x<20>y|"},
        {R"({\fs x\fs0 y\fs-9999999999999 y\fs9999999999999 z})", "<24>x<2>yy<400>z|"},
        {R"({\b\i\ul\strike x\b0\i0\ulnone\strike0 y})", "<bius>x<>y|"},
        {R"({\ul a\ul0 b\uld c\uld0 d\uldb e\uldb0 f\ulw g\ulw0 h})",
         "<u>a<>b<u>c<>d<u>e<>f<u>g<>h|"},
        {R"({{\b\i y}\ul x\super a\sub b\nosupersub c\plain\par})", "<bi>y<u>x<u^>a<u_>b<u>c<>|"},
        {R"({{\fonttbl{\f0 Courier New;}}x\b\i\fs2\f9 y\plain z})",
         "<Courier New3 24>x<2bi>y<Courier New3 24>z|"},
        {R"({\deff1{\fonttbl\f0 Arial;\f1\froman Times New Roman;}\fs21 x})",
         "<Times New Roman2 21>x|"},
        {R"({{\fonttbl\f0\froman a;\f1\fswiss{\*\falt no}b;\f2\fmodern c;\f3\ftech d;\f4 e;}x)"
         R"(\f1 x\f2 x\f3 x\f4 x})",
         "<a2 24>x<b1 24>x<c3 24>x<d4 24>x<e0 24>x|"},
        {R"({{\fonttbl{\f0 y}\f1 z\f2\fmodern  ARIAL }\f2 x})", "< ARIAL 1 24>x|"},
        {R"({{\fonttbl{\f0\fcharset2 a;}{\f1 b;}}\'b7\'b8\f1\'b7})", "<a0 24>•¸<b0 24>·|"},
        {R"({{\*\own\fonttbl{\f0 Arial;}}x})", "x|"},
        {"{{\\fonttbl " + repeated("y", 65) + ";}x}", "<" + repeated("y", 64) + "0 24>x|"},
        {R"({{\colortbl;\red255\green1\blue2;}\cf1\highlight1 x\cf0\cb0 x\cb1 x\cb99\chcbpat1 x})",
         "<#255.1.2/255.1.2>x<>x</255.1.2>xx|"},
        {R"({{\colortbl\red1\green2\blue3;\red300\green-5;;}\cf0\cb0 x\cf1 x\cf2 x\cf3 x\cf-1 x})",
         "<#1.2.3>x<#255.0.0>x<>xxx|"},
        {"{{\\colortbl" + repeated(";", 4095) + R"(\red1;\red2;}\cf4095 x\cf4096 x})",
         "<#1.0.0>x<>x|"},
        {"{" + repeated("{", 255) + "\\b x}x", "<b>x<>x|"},
        // Deeper groups share their look, however many of them end.
        {"{" + repeated("{", 300) + "\\b x" + repeated("}", 45) + "x}x", "<b>xx<>x|"},
    });
}

TEST(RichText, LaysParagraphsOut) {
    expect({
        {R"({\qc\li720\ri360\fi-360\sb60\sa120 a})", "[c 720 360 -360 60 120 0 l360]a|"},
        {R"({\qj\sa60 a\par\sb30\ql b\par\pard c\par\qr{\qc d}})",
         "[j 0 0 0 0 60 0]a|[l 0 0 0 30 60 0]b|c|[r 0 0 0 0 0 0]d|"},
        {R"({\li9999999999\ri3601\fi3601\sb9999999999\sa2881\sl4801\tx31681 a})",
         "[l 3600 3600 3600 2880 2880 4800 l24480]a|"},
        {R"({\li-1\ri-1\fi-3601\sb-1\sa-1\sl-4801 a\par\li3600\fi-3601 b\par\li9\ri\fi\sl c})",
         "[l 0 0 0 0 0 -4800]a|[l 3600 0 -3600 0 0 -4800 l3600]b|[l 9 0 0 0 0 0]c|"},
        {R"({\sl360\slmult1 a\par\slmult0 b})", "[l 0 0 0 0 0 360 factor]a|[l 0 0 0 0 0 360]b|"},
        {R"({\li100\tqr\tx900\tx900\tx500\tqc\tx50\tx100 a})",
         "[l 100 0 0 0 0 0 l400 r800 l800]a|"},
        {R"({\tqc\pard\tx500\tqc\tx600 a})", "[l 0 0 0 0 0 0 l500 c600]a|"},
        {"{" + repeated("\\tx9", 33) + "a}", "[l 0 0 0 0 0 0" + repeated(" l9", 32) + "]a|"},
    });
}

TEST(RichText, IsNothingElse) {
    for (const std::string& bytes : {""s, "text"s, R"(\rtf1)"s, "}"s, "\0{a}"s})
        EXPECT_FALSE(read_rtf(bytes)) << bytes;
}

// Without its limits the reader would not come to an end on these.
TEST(RichText, KeepsItsLimits) {
    const int million = 1'000'000;
    const std::tuple<std::string, std::size_t, std::size_t> table[]{
        // and how many characters and paragraphs are left
        {repeated("{", million) + "a", 1, 1},
        {R"({\*)" + repeated("{a", million), 0, 0},
        {R"({{\fonttbl)" + repeated("\\f123456 a;", 100'000) + "}a", 1, 1},
        {"{" + repeated("\\tx9\\par", 100'001), 0, 100'000},
        {"{" + repeated("\\b a\\b0 a", 100'000), 200'000, 49},
        {"{" + repeated("a", 3 * million), 1 << 20, 256},
        {"{" + repeated("\n", (4 << 20) - 1) + "aa", 1, 1},
    };
    for (const auto& [rtf, characters, paragraphs] : table) {
        const RichDocument document = read_rtf(rtf).value();
        std::size_t left = 0;
        for (const RichParagraph& paragraph : document.paragraphs)
            for (const TextRun& run : paragraph.runs)
                left += run.text.size();
        EXPECT_EQ(std::pair(left, document.paragraphs.size()), std::pair(characters, paragraphs))
            << rtf.substr(0, 20);
        EXPECT_LE(document.fonts.size(), 1024U);
    }
}

TEST(Help, ReadsWholeInAnyWordProcessorsAlphabet) {
    const auto root = std::filesystem::path(__FILE__).parent_path().parent_path();
    std::ifstream file(root / "shipped" / "Help.rtf", std::ios::binary);
    const std::string rtf{std::istreambuf_iterator<char>(file), {}};
    for (const char c : rtf)
        ASSERT_TRUE(c == '\n' || c == '\r' || (c >= ' ' && c <= '~'));
    const std::string text = shown(rtf);
    for (const char* wanted : {"„neues Spiel“", "„Bestzeiten“", "„Beenden“", "♥", "♠", "♦", "♣"})
        EXPECT_NE(text.find(wanted), text.npos) << wanted;
    EXPECT_EQ(text.find("\uFFFD"), text.npos);
    EXPECT_EQ(text.find_first_of("{}\\"), text.npos);
}

}  // namespace
}  // namespace solvanta
