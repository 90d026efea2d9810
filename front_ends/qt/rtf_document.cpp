#include "front_ends/qt/rtf_document.h"

#include <algorithm>
#include <cstdlib>

#include <QBrush>
#include <QChar>
#include <QFont>
#include <QFontInfo>
#include <QTextBlock>

#include "front_ends/qt/scale.h"

namespace solvanta::qt {
namespace {

constexpr int most_fonts = 1024;
constexpr int most_colors = 4096;
constexpr int most_characters = 1 << 20;
constexpr int most_paragraphs = 100'000;
// The text layout takes quadratic time for a paragraph without blanks, and never ends for a
// document higher than 8,388,607 pixels.
constexpr int longest_paragraph = 4096;
constexpr double greatest_document_height = 4'000'000;

constexpr Twips default_tab_stop = 720;
constexpr int default_half_points = 24;
constexpr double single_line_spacing = 240;

/// The document separates its parts by some of the code points that no text contains.
bool can_be_stored(char32_t character) {
    constexpr char32_t object_replacement = 0xFFFC;
    return character != QChar::ParagraphSeparator && character != object_replacement &&
           !QChar::isNonCharacter(character) && !QChar::isSurrogate(character);
}

/// `text` with U+FFFD for everything that the document could not take as text.
QString storable(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (const char32_t character : text.toUcs4()) {
        if (can_be_stored(character)) {
            result.append(QChar::fromUcs4(character));
        } else {
            result.append(QChar(QChar::ReplacementCharacter));
        }
    }
    return result;
}

/// Relative to the left indent, and never so far out that text would be cut off.
Twips first_line_indent(const RtfParagraph& paragraph) {
    return std::max(paragraph.first_line, -paragraph.left);
}

/// The document measures tab stops from the start of the line, rich text from the left margin. A
/// hanging paragraph has a stop of its own where the lines after the first one start.
QList<QTextOption::Tab> tab_stops(const RtfParagraph& paragraph) {
    const Twips line_start = paragraph.left + first_line_indent(paragraph);
    QList<QTextOption::Tab> tabs = paragraph.tabs;
    if (paragraph.first_line < 0) tabs.append({double(paragraph.left), QTextOption::LeftTab});
    for (QTextOption::Tab& tab : tabs) {
        tab.position = to_pixels(static_cast<Twips>(tab.position) - line_start);
    }
    tabs.removeIf([](const QTextOption::Tab& tab) { return tab.position <= 0; });
    std::sort(tabs.begin(), tabs.end(),
              [](const auto& one, const auto& other) { return one.position < other.position; });
    return tabs;
}

void set_line_spacing(QTextBlockFormat& format, const RtfParagraph& paragraph) {
    const Twips spacing = paragraph.line_spacing;
    if (spacing == 0) return;
    if (paragraph.line_spacing_factor) {
        constexpr double percent = 100;
        format.setLineHeight(std::abs(spacing) / single_line_spacing * percent,
                             QTextBlockFormat::ProportionalHeight);
    } else {
        format.setLineHeight(to_pixels(std::abs(spacing)), spacing > 0
                                                               ? QTextBlockFormat::MinimumHeight
                                                               : QTextBlockFormat::FixedHeight);
    }
}

/// Neighbouring margins overlap in the document and add up in rich text, so all the space between
/// two paragraphs goes above the second: its own and what the first one owes.
QTextBlockFormat block_format(const RtfParagraph& paragraph, Twips space_owed) {
    QTextBlockFormat format;
    format.setAlignment(paragraph.alignment);
    format.setLeftMargin(to_pixels(paragraph.left));
    format.setRightMargin(to_pixels(paragraph.right));
    format.setTextIndent(to_pixels(first_line_indent(paragraph)));
    format.setTopMargin(to_pixels(paragraph.before + space_owed));
    format.setTabPositions(tab_stops(paragraph));
    set_line_spacing(format, paragraph);
    return format;
}

}  // namespace

void RtfTables::add_font(int number, const QString& name, FontKind kind, bool symbol_encoding) {
    if (fonts_.size() >= most_fonts) return;
    const FontKind known = font_kind(name);
    fonts_.insert(
        number, {.families = font_families(name, kind),
                 .fixed_pitch = (known == FontKind::Unknown ? kind : known) == FontKind::FixedPitch,
                 .symbol_encoding = symbol_encoding});
}

void RtfTables::add_color(const QColor& color) {
    if (colors_.size() < most_colors) colors_.append(color);
}

bool RtfTables::has_symbol_encoding(std::optional<int> number) const {
    const Font* const found = font(number);
    return found != nullptr && found->symbol_encoding;
}

const RtfTables::Font* RtfTables::font(std::optional<int> number) const {
    const auto found = fonts_.constFind(number.value_or(default_font_));
    return found == fonts_.constEnd() ? nullptr : &*found;
}

QColor RtfTables::color(std::optional<int> number) const {
    return number ? colors_.value(*number) : QColor();
}

std::optional<int> RtfTables::font_pixels(const RtfCharacters& characters) const {
    if (!characters.half_points && fonts_.isEmpty()) return std::nullopt;
    constexpr double pixels_per_half_point = 96.0 / 72 / 2;
    const int half_points = characters.half_points.value_or(default_half_points);
    return std::max(qRound(half_points * pixels_per_half_point), 1);
}

QTextCharFormat RtfTables::format(const RtfCharacters& characters) const {
    QTextCharFormat format;
    if (const Font* const used = font(characters.font); used != nullptr) {
        format.setFontFamilies(used->families);
        if (used->fixed_pitch) {
            format.setFontFixedPitch(true);
            format.setFontStyleHint(QFont::Monospace);
        }
    }
    if (const std::optional<int> size = font_pixels(characters)) {
        format.setProperty(QTextFormat::FontPixelSize, *size);
    }
    if (const QColor ink = color(characters.foreground); ink.isValid()) format.setForeground(ink);
    if (const QColor paper = color(characters.background); paper.isValid()) {
        format.setBackground(paper);
    }
    if (characters.bold) format.setFontWeight(QFont::Bold);
    if (characters.italic) format.setFontItalic(true);
    if (characters.underline) format.setFontUnderline(true);
    if (characters.strike) format.setFontStrikeOut(true);
    if (characters.vertical != QTextCharFormat::AlignNormal) {
        format.setVerticalAlignment(characters.vertical);
    }
    return format;
}

RtfDocumentBuilder::RtfDocumentBuilder(QTextDocument& document, const RtfTables& tables)
    : document_(document),
      tables_(tables),
      default_font_pixels_(QFontInfo(document.defaultFont()).pixelSize()),
      undo_was_enabled_(document.isUndoRedoEnabled()) {
    document_.setUndoRedoEnabled(false);
    document_.clear();
    QTextOption option = document_.defaultTextOption();
    option.setTabStopDistance(to_pixels(default_tab_stop));
    document_.setDefaultTextOption(option);
    cursor_ = QTextCursor(&document_);
    cursor_.beginEditBlock();
}

RtfDocumentBuilder::~RtfDocumentBuilder() {
    cursor_.endEditBlock();
    document_.setUndoRedoEnabled(undo_was_enabled_);
}

void RtfDocumentBuilder::add(char16_t unit, const RtfCharacters& characters,
                             const RtfParagraph& paragraph) {
    if (is_full_ || characters.hidden || (unit < u' ' && unit != u'\t')) return;
    if (runs_.empty() || runs_.back().characters != characters) runs_.push_back({{}, characters});
    runs_.back().text.append(QChar(unit));
    ++length_;
    if (++paragraph_length_ >= longest_paragraph && !QChar::isHighSurrogate(unit)) {
        end_paragraph(paragraph, characters);
    }
}

void RtfDocumentBuilder::end_paragraph(const RtfParagraph& paragraph, const RtfCharacters& mark) {
    if (is_full_) return;
    height_ += greatest_height(paragraph, mark);
    is_full_ = height_ > greatest_document_height;
    if (!is_full_) {
        begin_block(block_format(paragraph, space_owed_), tables_.format(mark));
        for (const Run& run : runs_) {
            cursor_.insertText(storable(run.text), tables_.format(run.characters));
        }
        space_owed_ = paragraph.after;
        is_full_ = length_ >= most_characters || ++paragraphs_ >= most_paragraphs;
    }
    runs_.clear();
    paragraph_length_ = 0;
}

void RtfDocumentBuilder::finish(const RtfParagraph& paragraph, const RtfCharacters& mark) {
    if (paragraph_length_ > 0) end_paragraph(paragraph, mark);
}

double RtfDocumentBuilder::font_pixels(const RtfCharacters& characters) const {
    const std::optional<int> size = tables_.font_pixels(characters);
    return size ? *size : default_font_pixels_;
}

/// More pixels than the paragraph will be high in any window fit to read it.
double RtfDocumentBuilder::greatest_height(const RtfParagraph& paragraph,
                                           const RtfCharacters& mark) const {
    constexpr double narrowest_line = 150;
    constexpr double line_per_font_height = 1.5;
    double tallest = font_pixels(mark);
    double lines = 1;
    for (const Run& run : runs_) {
        const double size = font_pixels(run.characters);
        const double characters_per_line = std::max(narrowest_line / size, 1.0);
        const auto breaks = run.text.count(u'\t') + run.text.count(QChar(QChar::LineSeparator));
        tallest = std::max(tallest, size);
        lines += double(breaks) + double(run.text.size()) / characters_per_line;
    }
    const Twips spacing = std::abs(paragraph.line_spacing);
    double line = tallest * line_per_font_height;
    line = paragraph.line_spacing_factor ? std::max(line, line * spacing / single_line_spacing)
                                         : line + to_pixels(spacing);
    return lines * line + to_pixels(paragraph.before + paragraph.after);
}

/// A document has one block from the start.
void RtfDocumentBuilder::begin_block(const QTextBlockFormat& block, const QTextCharFormat& mark) {
    if (paragraphs_ > 0) {
        cursor_.insertBlock(block, mark);
    } else {
        cursor_.setBlockFormat(block);
        cursor_.setBlockCharFormat(mark);
    }
}

}  // namespace solvanta::qt
