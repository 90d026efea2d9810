#include "front_ends/qt/rich_text_view.h"

#include <string>

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace solvanta::qt {
namespace {

RichParagraph paragraph(std::string text, const CharacterLook& look = {}) {
    RichParagraph result;
    result.runs.push_back({std::move(text), look});
    return result;
}

TEST(RichTextView, GivesTheDocumentItsLook) {
    RichDocument document;
    document.fonts = {{"Own", FontKind::FixedPitch}};
    document.paragraphs = {paragraph("plain"), paragraph("x", {.font = 0,
                                                               .half_points = 21,
                                                               .ink = Color{255, 0, 16},
                                                               .paper = Color{1, 2, 3},
                                                               .bold = true,
                                                               .script = Script::Super})};
    document.paragraphs[0].layout.after = 60;
    document.paragraphs[1].layout = {.alignment = ParagraphAlignment::Right,
                                     .left = 720,
                                     .right = 360,
                                     .first_line = -360,
                                     .before = 30,
                                     .line_spacing = 360,
                                     .line_spacing_factor = true,
                                     .tabs = {{300, Alignment::Centered}}};
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
    EXPECT_EQ(layout.tabPositions(), QList({QTextOption::Tab(20, QTextOption::CenterTab)}));
}

// Higher documents would never be laid out.
TEST(RichTextView, LeavesOutWhatIsTooHigh) {
    RichParagraph tall = paragraph("");
    tall.mark.half_points = 400;
    RichParagraph wide = paragraph("");
    wide.layout.before = 2880;
    for (const RichParagraph& part : {tall, paragraph("a", {.half_points = 400}), wide}) {
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
