#include "front_ends/web/controls.h"

#include <memory>

#include "front_ends/common/walk.h"
#include "front_ends/web/canvas.h"
#include "front_ends/web/look.h"
#include "front_ends/web/rich_text_view.h"
#include "rich_text/font_kind.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::web {
namespace {

void build(CommandButton& element, const Node& area, WindowParts& parts) {
    const Node button(area, "button", "element button");
    button.listen("click", [&](const PageEvent&) { parts.deliver(element.Click); });
    parts.syncs.emplace_back([button, &element] {
        button.text(element.Caption);
        button.place(element);
    });
}

void build(Frame& frame, const Node& area, WindowParts& parts) {
    const Node box(area, "fieldset", "element frame");
    Node(box, "legend").text(frame.Caption);
    const auto canvas = std::make_shared<Canvas>(frame, Node(box, "div", "inside"), parts);
    parts.syncs.emplace_back([box, canvas, &frame, &parts] {
        box.attribute_if("disabled", !frame.Enabled);
        box.place(frame);
        canvas->sync();
        for (const Control& control : frame.controls) {
            if (auto* const* text_box = std::get_if<TextBox*>(&control))
                parts.text_boxes[*text_box].attribute("aria-label", words_of(frame));
        }
    });
    build_controls(frame, box, parts);
}

void listen_to(const Node& input, TextBox& box, WindowParts& parts) {
    input.listen("input", [&box, handle = input.handle()](const PageEvent&) {
        box.Text = taken(page_value(handle));
    });
    input.listen("keydown", [&](PageEvent& event) {
        if (event.composing) return;
        event.taken_over = event.key == "Enter";  // or it would press what gets the focus next
        parts.deliver([&] {
            if (box.KeyDown) box.KeyDown(event.key == "Enter" ? key_enter : 0);
        });
    });
}

void build(TextBox& box, const Node& area, WindowParts& parts) {
    const Node input(area, "input", "element text-box");
    set_font(input, box.Font);
    for (const auto& [name, value] :
         {std::pair{"autocomplete", "off"}, {"spellcheck", "false"}, {"enterkeyhint", "done"}}) {
        input.attribute(name, value);
    }
    parts.text_boxes[&box] = input;
    listen_to(input, box, parts);
    parts.syncs.emplace_back([input, &box] {
        if (taken(page_value(input.handle())) != box.Text)
            page_set(input.handle(), "value", box.Text.c_str());
        input.place(box);
    });
}

void build(PictureBox& box, const Node& area, WindowParts& parts) {
    const auto view = std::make_shared<PictureView>(area, "element picture-box", parts.pictures);
    parts.syncs.emplace_back([view, &box, &parts] {
        view->node().place(box);
        if (box.Visible) view->show(box.Picture, parts.fine);
    });
}

void build(RichTextBox& box, const Node& area, WindowParts& parts) {
    const Node view(area, "div", "element rich-text");
    set_font(view, box.Font);
    view.turn("columns", font_kind(box.Font.family) == FontKind::FixedPitch);
    view.attribute("tabindex", "0");
    view.attribute("role", "document");
    parts.syncs.emplace_back([view, &box, shown = std::string()]() mutable {
        view.place(box);
        if (shown == box.TextRTF) return;
        shown = box.TextRTF;
        page_set(view.handle(), "textContent", "");
        if (const auto text = read_rtf(box.TextRTF)) show_rich_text(*text, box, view);
        page_set(view.handle(), "scrollTop", "0");
    });
}

}  // namespace

void build_controls(Container& container, const Node& area, WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, area, parts); }, control);
    }
}

}  // namespace solvanta::web
