#include "front_ends/web/rich_text_view.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "front_ends/web/look.h"

namespace solvanta::web {
namespace {

/// A length in pixels of the unscaled form, as the style sheet's own; it grows with the text size
/// that is set in the browser.
std::string scaled(double pixels) {
    constexpr double pixels_per_text_size = 16;
    return "calc(" + std::to_string(pixels / pixels_per_text_size) + "rem * var(--scale))";
}

const char* to_css(ParagraphAlignment alignment) {
    if (alignment == ParagraphAlignment::Right) return "right";
    if (alignment == ParagraphAlignment::Centered) return "center";
    return alignment == ParagraphAlignment::Justified ? "justify" : "left";
}

void set_layout(const Node& node, const ParagraphLayout& layout) {
    constexpr double single = 240;
    constexpr double normal_line = 1.15;
    const std::pair<const char*, Twips> lengths[] = {{"padding-left", layout.left},
                                                     {"padding-right", layout.right},
                                                     {"text-indent", layout.first_line},
                                                     {"padding-top", layout.before},
                                                     {"padding-bottom", layout.after}};
    node.style("text-align", to_css(layout.alignment));
    for (const auto& [property, length] : lengths) {
        if (length != 0) node.style(property, scaled(logical_scale.length(length)));
    }
    const int spacing = std::abs(layout.line_spacing);
    if (layout.line_spacing_factor && spacing != 0) {
        node.style("line-height", spacing / single * normal_line);
    } else if (spacing != 0) {
        node.style("line-height", scaled(logical_scale.length(spacing)));
    }
}

void set_look(const Node& node, const CharacterLook& look, const RichDocument& document) {
    constexpr double pixels_per_half_point = 96.0 / 72 / 2;
    if (look.font) node.style("font-family", font_families(document.fonts.at(*look.font).family));
    if (look.half_points)
        node.style("font-size", scaled(*look.half_points * pixels_per_half_point));
    if (look.ink) node.style("color", web::to_css(*look.ink));
    if (look.paper) node.style("background", web::to_css(*look.paper));
    if (look.bold) node.style("font-weight", "bold");
    if (look.italic) node.style("font-style", "italic");
    if (look.underline || look.strike) {
        node.style("text-decoration", std::string(look.underline ? "underline " : "") +
                                          (look.strike ? "line-through" : ""));
    }
    if (look.script != Script::Normal) {
        node.style("vertical-align", look.script == Script::Super ? "super" : "sub");
    }
}

/// Writes one paragraph. A page knows no tab stops: what stands before a tab is put into a box that
/// reaches up to the stop.
class ParagraphWriter {
  public:
    ParagraphWriter(const RichParagraph& paragraph, const RichDocument& document, const Node& node)
        : paragraph_(paragraph), document_(document), node_(node), box_(node) {}

    void write();

  private:
    void write(std::string_view text, const CharacterLook& look) const;
    void begin_box();

    const RichParagraph& paragraph_;
    const RichDocument& document_;
    Node node_;
    Node box_;  // the paragraph itself behind the last tab
    Twips reached_ = 0;
    std::ptrdiff_t tabs_left_ = 0;
};

void ParagraphWriter::write() {
    for (const TextRun& run : paragraph_.runs)
        tabs_left_ += std::count(run.text.begin(), run.text.end(), '\t');
    begin_box();
    for (const TextRun& run : paragraph_.runs) {
        std::string_view text = run.text;
        for (std::size_t tab = 0; (tab = text.find('\t')) != std::string_view::npos;) {
            write(text.substr(0, tab), run.look);
            text.remove_prefix(tab + 1);
            --tabs_left_;
            begin_box();
        }
        write(text, run.look);
    }
}

/// The box up to the next stop; stops for right-aligned and centred text are taken for plain ones.
void ParagraphWriter::begin_box() {
    box_ = node_;
    if (tabs_left_ == 0) return;
    const auto& tabs = paragraph_.layout.tabs;
    const auto next = std::find_if(tabs.begin(), tabs.end(),
                                   [this](const TabStop& tab) { return tab.position > reached_; });
    const Twips stop =
        next != tabs.end() ? next->position : (reached_ / default_tab_stop + 1) * default_tab_stop;
    box_ = Node(node_, "span", "tab");
    box_.style("min-width", scaled(logical_scale.length(stop - reached_)));
    reached_ = stop;
}

void ParagraphWriter::write(std::string_view text, const CharacterLook& look) const {
    if (text.empty()) return;
    constexpr std::string_view line_separator = "\u2028";
    std::string content(text);
    for (std::size_t at = 0; (at = content.find(line_separator, at)) != std::string::npos;)
        content.replace(at, line_separator.size(), "\n");
    const Node span(box_, "span");
    set_look(span, look, document_);
    span.text(content);
}

/// Whether all of it is bold and large, as nothing but headings is.
bool is_heading(const RichParagraph& paragraph) {
    constexpr int large = 26;
    return !paragraph.runs.empty() &&
           std::all_of(paragraph.runs.begin(), paragraph.runs.end(), [](const TextRun& run) {
               return run.look.bold && run.look.half_points.value_or(0) >= large;
           });
}

/// The byte at which a character begins, counted from 0; the text's end where it has fewer.
std::size_t byte_of(std::string_view text, std::size_t character) {
    const auto is_inside = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    std::size_t at = 0;
    for (; at < text.size() && (character > 0 || is_inside(text[at])); ++at)
        character -= is_inside(text[at]) ? 0 : 1;
    return at;
}

Node add_row(const Node& table, const char* tag, const char* class_name) {
    Node row(table, tag, class_name);
    row.attribute("role", "row");
    return row;
}

Node add_cell(const Node& row, const char* role, const std::string& text) {
    Node cell(row, "span");
    cell.attribute("role", role);
    cell.text(text);
    return cell;
}

void show_line(const TextRun& run, const RichDocument& document, const RichTextBox& box,
               const Node& table) {
    const Node row = add_row(table, "p", "");
    for (auto column = box.Columns.begin(); column != box.Columns.end(); ++column) {
        const auto next = std::next(column);
        const std::size_t begin = byte_of(run.text, column->second);
        const std::size_t end =
            next == box.Columns.end() ? run.text.size() : byte_of(run.text, next->second);
        set_look(add_cell(row, "cell", run.text.substr(begin, end - begin)), run.look, document);
    }
}

/// Shows the lines of a table, each of one run, below a row of headings to be heard alone; answers
/// where they end.
auto show_table(const RichDocument& document, const RichTextBox& box, const Node& view) {
    const auto& lines = document.paragraphs;
    const auto end = std::find_if(lines.begin(), lines.end(),
                                  [](const RichParagraph& line) { return line.runs.size() != 1; });
    if (end == lines.begin()) return end;
    const Node table(view, "div");
    table.attribute("role", "table");
    const Node headings = add_row(table, "div", "unseen");
    for (const auto& column : box.Columns)
        add_cell(headings, "columnheader", column.first);
    for (auto line = lines.begin(); line != end; ++line)
        show_line(line->runs.front(), document, box, table);
    return end;
}

}  // namespace

void show_rich_text(const RichDocument& document, const RichTextBox& box, const Node& view) {
    auto paragraph = document.paragraphs.begin();
    if (!box.Columns.empty()) paragraph = show_table(document, box, view);
    for (; paragraph != document.paragraphs.end(); ++paragraph) {
        const Node node(view, is_heading(*paragraph) ? "h3" : "p");
        set_layout(node, paragraph->layout);
        if (paragraph->runs.empty()) {
            set_look(node, paragraph->mark, document);
            Node(node, "br");
        }
        ParagraphWriter(*paragraph, document, node).write();
    }
}

}  // namespace solvanta::web
