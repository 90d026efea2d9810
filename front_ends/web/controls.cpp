#include "front_ends/web/controls.h"

#include <utility>

#include "front_ends/web/border.h"
#include "front_ends/web/canvas.h"
#include "front_ends/web/rich_text_view.h"
#include "front_ends/web/trouble.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::web {
namespace {

/// Keeps `node`, and what is built on it, for the life of the window.
std::shared_ptr<Node> own(WindowParts& parts, Node node) {
    auto owned = std::make_shared<Node>(std::move(node));
    parts.owned.push_back(owned);
    return owned;
}

/// Tells a text box to those who listen by the words that stand around it.
std::string words_of(const Container& container) {
    std::string words;
    for (const Painted& item : container.canvas) {
        if (auto* const* label = std::get_if<Label*>(&item)) {
            words += (words.empty() ? "" : " ") + (*label)->Caption;
        }
    }
    return words;
}

void build(CommandButton& element, const Container& /*container*/, const Node& area,
           WindowParts& parts) {
    const auto button = own(parts, Node(area, "button", "element button"));
    button->listen(EventKind::Click,
                   [&element, &parts](const PageEvent&) { parts.deliver(element.Click); });
    parts.syncs.emplace_back([button, &element, caption = std::string()]() mutable {
        if (caption != element.Caption) button->text(element.Caption);
        caption = element.Caption;
        place(*button, element);
    });
}

void build(Frame& frame, const Container& /*container*/, const Node& area, WindowParts& parts) {
    const auto box = own(parts, Node(area, "fieldset", "element frame"));
    const auto caption = own(parts, Node(*box, "legend"));
    const auto inside = own(parts, Node(*box, "div", "inside"));
    const auto canvas = std::make_shared<Canvas>(frame, *inside, parts);
    parts.owned.push_back(canvas);
    caption->text(frame.Caption);
    parts.syncs.emplace_back([box, canvas, &frame] {
        box->attribute_if(!frame.Enabled, "disabled");
        place(*box, frame);
        canvas->sync();
    });
    build_controls(frame, *box, parts);
}

void build(TextBox& box, const Container& container, const Node& area, WindowParts& parts) {
    const auto input = own(parts, Node(area, "input", "element text-box"));
    set_font(*input, box.Font);
    for (const auto& [name, value] :
         {std::pair{"autocomplete", "off"}, {"spellcheck", "false"}, {"enterkeyhint", "done"}}) {
        input->attribute(name, value);
    }
    parts.text_boxes[&box] = input.get();
    input->listen(EventKind::Input, [input = input.get(), &box](const PageEvent&) {
        box.Text = taken(page_value(input->handle()));
    });
    input->listen(EventKind::Key, [&box, &parts](const PageEvent& event) {
        parts.deliver([&] {
            if (box.KeyDown) box.KeyDown(event.key == "Enter" ? key_enter : 0);
        });
    });
    parts.syncs.emplace_back([input, &box, &container] {
        if (taken(page_value(input->handle())) != box.Text) {
            page_set_value(input->handle(), box.Text.c_str());
        }
        input->attribute("aria-label", words_of(container));
        place(*input, box);
    });
}

void build(PictureBox& box, const Container& /*container*/, const Node& area, WindowParts& parts) {
    const auto node = own(parts, Node(area, "div", "element picture-box"));
    const auto view = std::make_shared<PictureView>(*node, parts.pictures);
    parts.owned.push_back(view);
    parts.syncs.emplace_back([node, view, &box, &parts] {
        place(*node, box);
        if (box.Visible) view->show(box.Picture, is_fine(parts.scale));
    });
}

void show_rtf(const Node& view, const RichTextBox& box) {
    page_text(view.handle(), "");
    if (const auto text = read_rtf(box.TextRTF)) {
        show_rich_text(*text, view);
    } else if (!box.TextRTF.empty()) {
        report_once("RTF", "formatierter Text nicht lesbar");
    }
    page_scroll_top(view.handle());
}

void build(RichTextBox& box, const Container& /*container*/, const Node& area, WindowParts& parts) {
    const auto view = own(parts, Node(area, "div", "element rich-text"));
    set_font(*view, box.Font);
    view->turn("columns", font_kind(box.Font.family) == FontKind::FixedPitch);
    view->attribute("tabindex", "0");
    view->attribute("role", "document");
    parts.syncs.emplace_back([view, &box, shown = std::string()]() mutable {
        place(*view, box);
        if (shown == box.TextRTF) return;
        shown = box.TextRTF;
        show_rtf(*view, box);
    });
}

}  // namespace

void build_controls(Container& container, const Node& area, WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, container, area, parts); }, control);
    }
}

}  // namespace solvanta::web
