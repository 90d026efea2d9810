#include "front_ends/qt/rtf_reader.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

#include "front_ends/qt/fonts.h"

namespace solvanta::qt {
namespace {

using namespace std::string_view_literals;

std::string repeated(std::string_view piece, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += piece;
    return all;
}

/// The document's text with "|" between paragraphs.
std::string text_of(const QTextDocument& document) {
    QStringList paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        paragraphs << block.text();
    }
    return paragraphs.join('|').toStdString();
}

std::string text_of(std::string_view rtf) {
    QTextDocument document;
    read_rtf(rtf, document);
    return text_of(document);
}

/// The look of the character "x", in the order of the conditions below; empty for the plain look.
std::string look_of_x(std::string_view rtf) {
    QTextDocument document;
    read_rtf(rtf, document);
    const QTextCharFormat format = document.find("x", 0).charFormat();
    QStringList look;
    if (format.hasProperty(QTextFormat::FontFamilies)) {
        look << format.fontFamilies().toStringList().value(0);
    }
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
        look << QString::number(format.intProperty(QTextFormat::FontPixelSize));
    }
    if (format.fontFixedPitch()) look << "fixed";
    if (format.fontWeight() == QFont::Bold) look << "bold";
    if (format.fontItalic()) look << "italic";
    if (format.fontUnderline()) look << "underline";
    if (format.fontStrikeOut()) look << "strike";
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) look << "super";
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        look << format.foreground().color().name();
    if (format.hasProperty(QTextFormat::BackgroundBrush)) {
        look << "on" << format.background().color().name();
    }
    return look.join(' ').toStdString();
}

/// The layout of the last paragraph: alignment, then indents and spaces in pixels.
std::string layout_of_last(std::string_view rtf) {
    QTextDocument document;
    read_rtf(rtf, document);
    const QTextBlockFormat format = document.lastBlock().blockFormat();
    QStringList layout{QString::number(int(format.alignment()))};
    for (const double pixels :
         {format.leftMargin(), format.rightMargin(), format.textIndent(), format.topMargin(),
          format.lineHeight(), double(format.lineHeightType())}) {
        layout << QString::number(pixels);
    }
    return layout.join(' ').toStdString();
}

struct Expectation {
    std::string_view rtf;
    std::string_view expected;
};

TEST(RtfReader, ShowsTheText) {
    const std::vector<Expectation> table{
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
    };
    for (const auto& [rtf, expected] : table)
        EXPECT_EQ(text_of(rtf), expected) << rtf;
}

TEST(RtfReader, GivesCharactersTheirLook) {
    const std::vector<Expectation> table{
        {"{x}", ""},
        {R"({\f0\cf1\highlight1 x})", ""},
        {R"({\fs20 x})", "13"},
        {R"({{\fonttbl{\f0\fswiss Arial;}}x})", "Arial 16"},
        {R"({\deff1{\fonttbl\f0 Arial;\f1\froman Times New Roman;}\fs21 x})", "Times New Roman 14"},
        {R"({{\fonttbl{\f0 Arial;}{\f1\fmodern{\*\falt y}Own;}}\f1 x})", "Own 16 fixed"},
        {R"({{\fonttbl{\f0 y}\f1 z\f2 Own}\f2 x})", "Own 16"},
        {R"({{\*\own\fonttbl{\f0 Arial;}}x})", ""},
        {R"({{\fonttbl{\f0 Courier New;}}\b\i\fs2\plain x})", "Courier New 16 fixed"},
        {R"({\fs1000000 x})", "267"},
        {R"({\fs0 x})", "1"},
        {R"({\b\i\ul\strike x})", "bold italic underline strike"},
        {R"({\b\i\ul\b0\i0\ulnone x})", ""},
        {R"({{\b\i y}\ul x})", "underline"},
        {R"({\super x})", "super"},
        {R"({{\colortbl;\red255\green0\blue0;}\cf1\highlight1 x})", "#ff0000 on #ff0000"},
        {R"({{\colortbl;\red300\green-5\blue16;}\cf1 x})", "#ff0010"},
        {R"({{\colortbl\red1\green2\blue3;}\cf0\cb0 x})", "#010203"},
        {R"({{\colortbl;\red1;;}\cf2 x})", ""},
        {R"({{\colortbl;\red1;}\cf1\cf0\cb99 x})", ""},
    };
    for (const auto& [rtf, expected] : table)
        EXPECT_EQ(look_of_x(rtf), expected) << rtf;

    // 300 groups deep, 40 of them closed again: still within what the deepest ones share.
    EXPECT_EQ(look_of_x(repeated("{", 300) + "\\b y" + repeated("}", 40) + "x"), "bold");
}

TEST(RtfReader, LaysParagraphsOut) {
    const std::vector<Expectation> table{
        {"{a}", "1 0 0 0 0 0 0"},
        {R"({\qc\li720\ri360\fi-360\sb60\sa120 a})", "4 48 24 -24 4 0 0"},
        {R"({\qr a\par\pard\sb30 b})", "1 0 0 0 2 0 0"},
        {R"({\qj\sa60 a\par\sb30 b})", "8 0 0 0 6 0 0"},
        {R"({\qr{\qc a}\par})", "2 0 0 0 0 0 0"},
        {R"({\li300\fi-9000\ri-50 a})", "1 20 0 -20 0 0 0"},
        {R"({\li99999999999\sb99999999999 a})", "1 240 0 0 192 0 0"},
        {R"({\li-99999999999 a})", "1 0 0 0 0 0 0"},
        {R"({\sl360\slmult1 a})", "1 0 0 0 0 150 1"},
        {R"({\sl300 a})", "1 0 0 0 0 20 3"},
        {R"({\sl-300 a})", "1 0 0 0 0 20 2"},
    };
    for (const auto& [rtf, expected] : table)
        EXPECT_EQ(layout_of_last(rtf), expected) << rtf;
}

TEST(RtfReader, KeepsTheDocumentsFontAndColumnsWithoutHeader) {
    QTextDocument document;
    QFont font(font_families("Courier New"));
    font.setPixelSize(15);
    document.setDefaultFont(font);
    const std::string_view list =
        "{{ 1:   1:40  J\\'fcrgen \\{x\\}               3. Jan 2024 9:05}{\r\n\\par }"
        "{10:  59:59                             25. Dez 2023 23:40}{\r\n\\par }"
        "{\r\n\\par }{Spiele 12 Gewonnen: 5 [41,67%]  Seit Spielstart 0}}";
    read_rtf("{old}", document);
    EXPECT_TRUE(read_rtf(list, document));
    EXPECT_EQ(text_of(document),
              " 1:   1:40  Jürgen {x}               3. Jan 2024 9:05|"
              "10:  59:59                             25. Dez 2023 23:40|"
              "|Spiele 12 Gewonnen: 5 [41,67%]  Seit Spielstart 0");
    EXPECT_TRUE(document.begin().begin().fragment().charFormat().properties().isEmpty());
    EXPECT_EQ(document.defaultFont(), font);
}

TEST(RtfReader, EmptiesTheDocumentForAnythingElse) {
    for (const std::string_view bytes : {""sv, "text"sv, "\\rtf1"sv, "}"sv, "\0{a}"sv}) {
        QTextDocument document("old");
        EXPECT_FALSE(read_rtf(bytes, document)) << bytes;
        EXPECT_EQ(text_of(document), "") << bytes;
    }
}

// Without its limits the reader would not come to an end on these.
TEST(RtfReader, KeepsItsLimits) {
    const int million = 1'000'000;
    struct {
        const char* name;
        std::string rtf;
        int least, most;  // characters shown
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
        {"tall paragraphs", "{" + repeated("\\fs400\\par", million / 10), 5'000, 15'000},
        {"tall letters", "{" + repeated("\\fs400 a", million / 4), 5'000, 15'000},
        {"wide spaces", "{" + repeated("\\sb2880\\par", million / 10), 15'000, 25'000},
        {"long source", "{" + repeated("{\\v a}", million) + "a", 0, 0},
    };
    for (const auto& [name, rtf, least, most] : table) {
        QTextDocument document;
        document.setTextWidth(600);
        read_rtf(rtf, document);
        document.documentLayout()->documentSize();
        EXPECT_GE(document.characterCount() - 1, least) << name;
        EXPECT_LE(document.characterCount() - 1, most) << name;
    }
}

TEST(RtfReader, SurvivesNoise) {
    const std::vector<std::string> pieces{
        "{",           "}",          "\\",        "{\\rtf1",    "{\\fonttbl",
        "{\\colortbl", ";",          "\\f1",      "\\cf1",      "\\red200",
        "\\par",       "\\u-10179?", "\\u56832",  "\\uc",       "\\'e4",
        "\\'",         "\\*",        "\\bin2",    "\\li-7",     "\\tx400",
        "\\tab ",      "\\pict",     "\\plain",   "\\fs999999", "\\fi-9999",
        "\r\n",        " Wort  ",    "\xe4\xff",  "1",          "-",
        "\\line",      "\\v",        "\\slmult1", "\\sl-1",     std::string(1, '\0')};
    std::mt19937 random(20240601);
    QTextDocument used;
    for (int round = 0; round < 2000; ++round) {
        std::string rtf = "{";
        for (auto left = random() % 60; left > 0; --left)
            rtf += pieces[random() % pieces.size()];
        QTextDocument fresh;
        ASSERT_TRUE(read_rtf(rtf, fresh));
        read_rtf(rtf, used);
        ASSERT_EQ(text_of(used), text_of(fresh)) << rtf;
        ASSERT_LE(fresh.characterCount(), int(rtf.size())) << rtf;
        ASSERT_GE(fresh.size().height(), 0) << rtf;
    }
}

TEST(Help, ReadsWholeInAnyWordProcessorsAlphabet) {
    const auto root =
        std::filesystem::path(__FILE__).parent_path().parent_path().parent_path().parent_path();
    std::ifstream file(root / "help" / "Help.rtf", std::ios::binary);
    const std::string rtf{std::istreambuf_iterator<char>(file), {}};
    for (const char c : rtf)
        ASSERT_TRUE(c == '\n' || c == '\r' || (c >= ' ' && c <= '~'));
    QTextDocument document;
    ASSERT_TRUE(read_rtf(rtf, document));
    const std::string text = text_of(document);
    for (const std::string_view wanted : {"„neues Spiel“", "„Bestzeiten“", "„Hilfe“", "„Beenden“",
                                          "„Löschen“", "„Ok“", "♥", "♠", "♦", "♣"}) {
        EXPECT_NE(text.find(wanted), text.npos) << wanted;
    }
    EXPECT_EQ(text.find("\uFFFD"), text.npos);
    EXPECT_EQ(text.find_first_of("{}\\"), text.npos);
}

}  // namespace
}  // namespace solvanta::qt
