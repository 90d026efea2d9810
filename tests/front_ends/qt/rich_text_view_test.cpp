#include "front_ends/qt/rich_text_view.h"

#include <string>

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

#include "rich_text/rtf_reader.h"

namespace solvanta::qt {
namespace {

TEST(RichTextView, GivesTheDocumentItsLook) {
    auto document =
        read_rtf(
            R"({\rtf1{\fonttbl{\f0\fmodern Own;}}{\colortbl;\red255\blue16;\red1\green2\blue3;})"
            R"(\sa60 plain\par\pard\qr\li720\ri360\fi-360\sb30\sl360\slmult1\tqc\tx1020)"
            R"(\f0\fs21\b\super\cf1\highlight2 x})")
            .value();
    document.paragraphs[0].runs[0].look = {};
    QTextDocument shown("old");
    show_rich_text(document, shown);
    EXPECT_EQ(shown.toPlainText(), "plain\nx");
    EXPECT_TRUE(shown.begin().begin().fragment().charFormat().properties().isEmpty());

    const QTextCharFormat look = shown.lastBlock().begin().fragment().charFormat();
    EXPECT_EQ(look.fontFamilies().toStringList().value(0), "Own");
    EXPECT_TRUE(look.fontFixedPitch());
    EXPECT_EQ(look.intProperty(QTextFormat::FontPixelSize), 14);
    EXPECT_EQ(look.foreground().color(), QColor(255, 0, 16));
    EXPECT_EQ(look.background().color(), QColor(1, 2, 3));
    EXPECT_EQ(look.fontWeight(), QFont::Bold);
    EXPECT_FALSE(look.fontItalic());
    EXPECT_EQ(look.verticalAlignment(), QTextCharFormat::AlignSuperScript);

    const QTextBlockFormat layout = shown.lastBlock().blockFormat();
    EXPECT_EQ(layout.alignment(), Qt::AlignRight);
    EXPECT_EQ(layout.leftMargin(), 48);
    EXPECT_EQ(layout.rightMargin(), 24);
    EXPECT_EQ(layout.textIndent(), -24);
    EXPECT_EQ(layout.topMargin(), 6);
    EXPECT_EQ(layout.lineHeight(), 150);
    EXPECT_EQ(layout.lineHeightType(), QTextBlockFormat::ProportionalHeight);
    EXPECT_EQ(layout.tabPositions(), QList({QTextOption::Tab(24, QTextOption::LeftTab),
                                            QTextOption::Tab(44, QTextOption::CenterTab)}));
}

// Higher documents would never be laid out.
TEST(RichTextView, LeavesOutWhatIsTooHigh) {
    RichParagraph tall;
    tall.mark.half_points = 400;
    RichParagraph tall_text;
    tall_text.runs.push_back({"a", {.half_points = 400}});
    RichParagraph wide;
    wide.layout.before = 2880;
    for (const RichParagraph& part : {tall, tall_text, wide}) {
        RichDocument document;
        document.paragraphs.assign(100'000, part);
        QTextDocument shown;
        shown.setTextWidth(600);
        show_rich_text(document, shown);
        const double height = shown.documentLayout()->documentSize().height();
        EXPECT_GT(height, 1'000'000);
        EXPECT_LT(height, 5'000'000);
    }
}

}  // namespace
}  // namespace solvanta::qt
