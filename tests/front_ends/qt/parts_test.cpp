#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QLocale>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

#include "front_ends/qt/locale_texts.h"
#include "front_ends/qt/rich_text_view.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::qt {
namespace {

TEST(LocaleTexts, AreThoseOfTheUser) {
    const LocaleTexts texts = texts_of(QLocale("da_DK"));
    EXPECT_TRUE(texts.month_abbreviations.back().starts_with("dec"));
    EXPECT_EQ(texts.time_separator + texts.decimal_separator, ".,");
}

TEST(RichTextView, GivesTheDocumentItsLook) {
    auto document =
        read_rtf(R"({{\fonttbl{\f0\fmodern Own;}}{\colortbl;\red255\blue16;\red1\green2\blue3;})"
                 R"(\sa60 plain\par\pard\qr\li720\ri360\fi-360\sb30\sl360\slmult1\tqc\tx1020\tqr)"
                 R"(\tx1320\fs21\b\super\cf1\highlight2 x\par\pard\plain\qj\sl-300 a\ul b\par\qc)"
                 R"(\sl300\plain\strike c{\i\sub d}})")
            .value();
    document.paragraphs[0].runs[0].look = {};
    QTextDocument shown("old");
    show_rich_text(document, shown, Scale());
    QTextDocument page;  // of the same look
    page.setHtml(
        "<style>p{margin:0} span{font:16px Own,'Liberation Mono','DejaVu Sans Mono'}</style>"
        "<p>plain<p align=right style='margin:6px 24px 0 48px; text-indent:-24px; "
        "line-height:150%'>"
        "<span style='font:bold 14px; vertical-align:super; color:#ff0010; background:#010203'>x"
        "</span><p align=justify style='line-height:20px; -qt-line-height-type:fixed'><span>a"
        "<u>b</u></span><p align=center style='line-height:20px; -qt-line-height-type:minimum'>"
        "<span><s>c<sub><i>d");
    EXPECT_EQ(shown.toHtml().toStdString(), page.toHtml().toStdString());

    // A page knows no tab stops and no fixed pitch.
    EXPECT_EQ(shown.begin().next().blockFormat().tabPositions(),
              QList<QTextOption::Tab>({{24, QTextOption::LeftTab},
                                       {44, QTextOption::CenterTab},
                                       {64, QTextOption::RightTab}}));
    EXPECT_EQ(shown.defaultTextOption().tabStopDistance(), 48);
    EXPECT_TRUE(shown.begin().charFormat().fontFixedPitch());
}

// Higher documents would never be laid out.
TEST(RichTextView, LeavesOutWhatIsTooHigh) {
    QTextDocument shown;
    show_rich_text({{}, std::vector(100'000, RichParagraph{{}, {.half_points = 400}, {}})}, shown,
                   Scale());
    EXPECT_LT(shown.documentLayout()->documentSize().height(), 5'000'000);
}

}  // namespace
}  // namespace solvanta::qt
