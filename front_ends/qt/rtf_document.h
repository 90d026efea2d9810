#pragma once

#include <optional>
#include <vector>

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>

#include "front_ends/qt/fonts.h"
#include "platform/elements.h"

namespace solvanta::qt {

/// How characters look. The default value is the plain look: what the document itself uses for
/// text, or the default font of its font table if it has one.
struct RtfCharacters {
    std::optional<int> font;         // number in the font table
    std::optional<int> half_points;  // size, 2 to 400
    std::optional<int> foreground;   // number in the colour table
    std::optional<int> background;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;
    QTextCharFormat::VerticalAlignment vertical = QTextCharFormat::AlignNormal;

    friend bool operator==(const RtfCharacters&, const RtfCharacters&) = default;
};

/// How a paragraph is laid out.
struct RtfParagraph {
    Qt::Alignment alignment = Qt::AlignLeft;
    Twips left = 0;
    Twips right = 0;
    Twips first_line = 0;  // relative to `left`, negative in a hanging paragraph
    Twips before = 0;
    Twips after = 0;
    Twips line_spacing = 0;            // 0 single, positive at least, negative exactly
    bool line_spacing_factor = false;  // `line_spacing` counts in 240ths of a line instead
    QTextOption::TabType next_tab = QTextOption::LeftTab;
    QList<QTextOption::Tab> tabs;  // positions in twips from the left margin
};

/// The font and colour tables of one document. They take a bounded number of entries and ignore
/// the rest; numbers that they don't hold mean the plain look.
class RtfTables {
  public:
    void set_default_font(int number) { default_font_ = number; }
    void add_font(int number, const QString& name, FontKind kind, bool symbol_encoding);
    void add_color(const QColor& color);  // an invalid one stands for the plain look

    /// Whether bytes in the font `number` are symbols rather than letters.
    bool has_symbol_encoding(std::optional<int> number) const;

    /// The size in pixels, if it isn't the document's own.
    std::optional<int> font_pixels(const RtfCharacters& characters) const;

    QTextCharFormat format(const RtfCharacters& characters) const;

  private:
    struct Font {
        QStringList families;
        bool fixed_pitch = false;
        bool symbol_encoding = false;
    };

    const Font* font(std::optional<int> number) const;
    QColor color(std::optional<int> number) const;

    QHash<int, Font> fonts_;
    QList<QColor> colors_;
    int default_font_ = 0;
};

/// Fills a text document paragraph by paragraph, replacing what it held. Only characters that the
/// document can store reach it, and no more than it can lay out in a few seconds.
class RtfDocumentBuilder {
  public:
    RtfDocumentBuilder(QTextDocument& document, const RtfTables& tables);
    RtfDocumentBuilder(const RtfDocumentBuilder&) = delete;
    RtfDocumentBuilder& operator=(const RtfDocumentBuilder&) = delete;
    ~RtfDocumentBuilder();

    /// Whether the document has taken all it can; what comes after is ignored.
    bool is_full() const { return is_full_; }

    /// Adds one UTF-16 unit to the paragraph. A half of a surrogate pair that comes without the
    /// other and characters that no text contains show as U+FFFD. `paragraph` is for paragraphs
    /// that grow too long for the text layout: they end and go on in a new one.
    void add(char16_t unit, const RtfCharacters& characters, const RtfParagraph& paragraph);

    /// Ends the paragraph. A mark at the very end of a document opens no paragraph after it.
    void end_paragraph(const RtfParagraph& paragraph, const RtfCharacters& mark);

    /// Ends the last paragraph if it has no mark of its own.
    void finish(const RtfParagraph& paragraph, const RtfCharacters& mark);

  private:
    struct Run {
        QString text;
        RtfCharacters characters;
    };

    double font_pixels(const RtfCharacters& characters) const;
    double greatest_height(const RtfParagraph& paragraph, const RtfCharacters& mark) const;
    void begin_block(const QTextBlockFormat& block, const QTextCharFormat& mark);

    QTextDocument& document_;
    const RtfTables& tables_;
    QTextCursor cursor_;
    std::vector<Run> runs_;  // of the paragraph that has not ended yet
    int paragraph_length_ = 0;
    int length_ = 0;
    int paragraphs_ = 0;
    Twips space_owed_ = 0;
    double height_ = 0;
    double default_font_pixels_ = 0;
    bool undo_was_enabled_ = false;
    bool is_full_ = false;
};

}  // namespace solvanta::qt
