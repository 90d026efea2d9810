#include "front_ends/qt/rich_text_view.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <QFont>
#include <QFontInfo>
#include <QTextBlock>
#include <QTextCursor>

#include "front_ends/qt/fonts.h"
#include "front_ends/qt/look.h"

namespace solvanta::qt {
namespace {

constexpr double greatest_document_height = 4'000'000;
constexpr double single_line_spacing = 240;

Qt::Alignment to_qt(ParagraphAlignment alignment) {
    constexpr Qt::AlignmentFlag flags[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter,
                                           Qt::AlignJustify};
    return flags[static_cast<std::size_t>(alignment)];
}

QTextOption::Tab to_qt(const TabStop& stop, const Scale& scale) {
    constexpr QTextOption::TabType types[] = {QTextOption::LeftTab, QTextOption::RightTab,
                                              QTextOption::CenterTab};
    return {scale.length(stop.position), types[static_cast<std::size_t>(stop.alignment)]};
}

void set_line_spacing(QTextBlockFormat& format, const ParagraphLayout& layout, const Scale& scale) {
    const Twips spacing = layout.line_spacing;
    if (spacing == 0) return;
    if (layout.line_spacing_factor) {
        constexpr double percent = 100;
        format.setLineHeight(std::abs(spacing) / single_line_spacing * percent,
                             QTextBlockFormat::ProportionalHeight);
    } else {
        format.setLineHeight(scale.length(std::abs(spacing)), spacing > 0
                                                                  ? QTextBlockFormat::MinimumHeight
                                                                  : QTextBlockFormat::FixedHeight);
    }
}

/// Neighbouring margins overlap in a text document, so all the space between two paragraphs goes
/// above the second: its own and what the first one owes.
QTextBlockFormat block_format(const ParagraphLayout& layout, Twips space_owed, const Scale& scale) {
    QTextBlockFormat format;
    format.setAlignment(to_qt(layout.alignment));
    format.setLeftMargin(scale.length(layout.left));
    format.setRightMargin(scale.length(layout.right));
    format.setTextIndent(scale.length(layout.first_line));
    format.setTopMargin(scale.length(layout.before + space_owed));
    QList<QTextOption::Tab> tabs;
    for (const TabStop& stop : layout.tabs)
        tabs.append(to_qt(stop, scale));
    format.setTabPositions(tabs);
    set_line_spacing(format, layout, scale);
    return format;
}

/// Fills a text document paragraph by paragraph, replacing what it held.
class Writer {
  public:
    Writer(const RichDocument& document, QTextDocument& shown, const Scale& scale);

    void write();

  private:
    QTextCharFormat format(const CharacterLook& look) const;
    void set_font(QTextCharFormat& format, const RichFont& font) const;
    int font_pixels(int half_points) const;
    double font_pixels(const CharacterLook& look) const;
    double greatest_height(const RichParagraph& paragraph) const;
    void begin_block(const QTextBlockFormat& block, const QTextCharFormat& mark);

    const RichDocument& document_;
    Scale scale_;
    double default_font_pixels_;
    QTextCursor cursor_;
    bool is_first_ = true;
};

Writer::Writer(const RichDocument& document, QTextDocument& shown, const Scale& scale)
    : document_(document),
      scale_(scale),
      default_font_pixels_(QFontInfo(shown.defaultFont()).pixelSize()),
      cursor_(&shown) {
    QTextOption option = shown.defaultTextOption();
    option.setTabStopDistance(scale.length(default_tab_stop));
    shown.setDefaultTextOption(option);
}

void Writer::write() {
    cursor_.beginEditBlock();
    Twips space_owed = 0;
    double height = 0;
    for (const RichParagraph& paragraph : document_.paragraphs) {
        height += greatest_height(paragraph);
        if (height > greatest_document_height) break;
        begin_block(block_format(paragraph.layout, space_owed, scale_), format(paragraph.mark));
        for (const TextRun& run : paragraph.runs)
            cursor_.insertText(QString::fromStdString(run.text), format(run.look));
        space_owed = paragraph.layout.after;
    }
    cursor_.endEditBlock();
}

QTextCharFormat Writer::format(const CharacterLook& look) const {
    QTextCharFormat format;
    if (look.font) set_font(format, document_.fonts.at(*look.font));
    if (look.half_points) {
        format.setProperty(QTextFormat::FontPixelSize, font_pixels(*look.half_points));
    }
    if (look.ink) format.setForeground(to_color(*look.ink));
    if (look.paper) format.setBackground(to_color(*look.paper));
    if (look.bold) format.setFontWeight(QFont::Bold);
    if (look.italic) format.setFontItalic(true);
    if (look.underline) format.setFontUnderline(true);
    if (look.strike) format.setFontStrikeOut(true);
    if (look.script != Script::Normal) {
        format.setVerticalAlignment(look.script == Script::Super ? QTextCharFormat::AlignSuperScript
                                                                 : QTextCharFormat::AlignSubScript);
    }
    return format;
}

void Writer::set_font(QTextCharFormat& format, const RichFont& font) const {
    format.setFontFamilies(font_families(QString::fromStdString(font.family), font.kind));
    if (font.kind != FontKind::FixedPitch) return;
    format.setFontFixedPitch(true);
    format.setFontStyleHint(QFont::Monospace);
}

int Writer::font_pixels(int half_points) const {
    constexpr double pixels_per_half_point = 96.0 / 72 / 2;
    return std::max(scale_.scaled(half_points * pixels_per_half_point), 1);
}

double Writer::font_pixels(const CharacterLook& look) const {
    return look.half_points ? font_pixels(*look.half_points) : default_font_pixels_;
}

/// More pixels than the paragraph will be high in any window fit to read it.
double Writer::greatest_height(const RichParagraph& paragraph) const {
    const double narrowest_line = 150 * scale_.pixels();
    constexpr double line_per_font_height = 1.5;
    double tallest = font_pixels(paragraph.mark);
    double lines = 1;
    for (const TextRun& run : paragraph.runs) {
        const double size = font_pixels(run.look);
        const double characters_per_line = std::max(narrowest_line / size, 1.0);
        const QString text = QString::fromStdString(run.text);
        const auto breaks = text.count(u'\t') + text.count(QChar(QChar::LineSeparator));
        tallest = std::max(tallest, size);
        lines += double(breaks) + double(text.size()) / characters_per_line;
    }
    const Twips spacing = std::abs(paragraph.layout.line_spacing);
    double line = tallest * line_per_font_height;
    line = paragraph.layout.line_spacing_factor
               ? std::max(line, line * spacing / single_line_spacing)
               : line + scale_.length(spacing);
    return lines * line + scale_.length(paragraph.layout.before + paragraph.layout.after);
}

/// A document has one block from the start.
void Writer::begin_block(const QTextBlockFormat& block, const QTextCharFormat& mark) {
    if (!std::exchange(is_first_, false)) {
        cursor_.insertBlock(block, mark);
    } else {
        cursor_.setBlockFormat(block);
        cursor_.setBlockCharFormat(mark);
    }
}

}  // namespace

void show_rich_text(const RichDocument& document, QTextDocument& shown, const Scale& scale) {
    const bool undo_was_enabled = shown.isUndoRedoEnabled();
    shown.setUndoRedoEnabled(false);
    shown.clear();
    Writer(document, shown, scale).write();
    shown.setUndoRedoEnabled(undo_was_enabled);
}

}  // namespace solvanta::qt
