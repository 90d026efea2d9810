#include "front_ends/web/rich_text_view.h"

#include <cstdlib>
#include <string_view>

namespace solvanta::web {
namespace {

double to_pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

/// A length of the unscaled form, as the style sheet's own.
std::string scaled(double pixels) {
    return "calc(" + std::to_string(pixels) + "px * var(--scale))";
}

const char* to_css(ParagraphAlignment alignment) {
    switch (alignment) {
        case ParagraphAlignment::Right:
            return "right";
        case ParagraphAlignment::Centered:
            return "center";
        case ParagraphAlignment::Justified:
            return "justify";
        case ParagraphAlignment::Left:
            break;
    }
    return "left";
}

void set_layout(const Node& node, const ParagraphLayout& layout) {
    if (layout.alignment != ParagraphAlignment::Left)
        node.style("text-align", to_css(layout.alignment));
    const std::pair<const char*, Twips> lengths[] = {{"padding-left", layout.left},
                                                     {"padding-right", layout.right},
                                                     {"text-indent", layout.first_line},
                                                     {"padding-top", layout.before},
                                                     {"padding-bottom", layout.after}};
    for (const auto& [property, length] : lengths) {
        if (length != 0) node.style(property, scaled(to_pixels(length)));
    }
    if (layout.line_spacing == 0) return;
    constexpr double single = 240;
    constexpr double normal_line = 1.15;
    const int spacing = std::abs(layout.line_spacing);
    if (layout.line_spacing_factor) {
        node.style("line-height", spacing / single * normal_line);
    } else {
        node.style("line-height", scaled(to_pixels(spacing)));
    }
}

void set_look(const Node& node, const CharacterLook& look, const RichDocument& document) {
    constexpr double pixels_per_half_point = 96.0 / 72 / 2;
    if (look.font) {
        node.style("font-family", font_families(document.fonts.at(*look.font).family));
    }
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
        : paragraph_(paragraph), document_(document), node_(node) {}

    void write();

  private:
    void write(std::string_view text, const CharacterLook& look);
    void begin_box();
    bool tab_follows(std::size_t run, std::size_t place) const;

    const RichParagraph& paragraph_;
    const RichDocument& document_;
    const Node& node_;
    Node box_;  // none behind the last tab
    Twips reached_ = 0;
    int tabs_left_ = 0;
};

void ParagraphWriter::write() {
    for (const TextRun& run : paragraph_.runs) {
        for (const char c : run.text)
            tabs_left_ += c == '\t' ? 1 : 0;
    }
    begin_box();
    for (const TextRun& run : paragraph_.runs) {
        std::string_view text = run.text;
        for (std::size_t tab = text.find('\t'); tab != std::string_view::npos;
             tab = text.find('\t')) {
            write(text.substr(0, tab), run.look);
            text.remove_prefix(tab + 1);
            --tabs_left_;
            begin_box();
        }
        write(text, run.look);
    }
    box_.leave_to_parent();
}

/// The box up to the next stop; stops for right-aligned and centred text are taken for plain ones.
void ParagraphWriter::begin_box() {
    box_.leave_to_parent();
    box_ = Node();
    if (tabs_left_ == 0) return;
    Twips stop = (reached_ / default_tab_stop + 1) * default_tab_stop;
    for (const TabStop& tab : paragraph_.layout.tabs) {
        if (tab.position <= reached_) continue;
        stop = tab.position;
        break;
    }
    box_ = Node(node_, "span", "tab");
    box_.style("min-width", scaled(to_pixels(stop - reached_)));
    reached_ = stop;
}

void ParagraphWriter::write(std::string_view text, const CharacterLook& look) {
    if (text.empty()) return;
    Node span(box_.handle() != 0 ? box_ : node_, "span");
    set_look(span, look, document_);
    std::string content(text);
    constexpr std::string_view line_separator = "\u2028";
    for (std::size_t at = content.find(line_separator); at != std::string::npos;
         at = content.find(line_separator, at)) {
        content.replace(at, line_separator.size(), "\n");
    }
    span.text(content);
    span.leave_to_parent();
}

}  // namespace

void show_rich_text(const RichDocument& document, const Node& view) {
    for (const RichParagraph& paragraph : document.paragraphs) {
        Node node(view, "p");
        set_layout(node, paragraph.layout);
        if (paragraph.runs.empty()) {
            set_look(node, paragraph.mark, document);
            Node(node, "br").leave_to_parent();
        }
        ParagraphWriter(paragraph, document, node).write();
        node.leave_to_parent();
    }
}

}  // namespace solvanta::web
