#include "front_ends/web/controls.h"

#include <memory>

#include "front_ends/common/walk.h"
#include "front_ends/web/look.h"
#include "front_ends/web/rich_text_view.h"
#include "rich_text/font_kind.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::web {
namespace {

void build(CommandButton& element, const Canvas& canvas, const Node& area, WindowParts& parts) {
    const Node button(area, "button", "element button");
    button.listen("click", [&](const PageEvent&) { parts.deliver(element.Click); });
    parts.syncs.emplace_back([button, &element, &canvas] {
        button.text(element.Caption);
        canvas.place(button, element);
    });
}

void build(Frame& frame, const Canvas& canvas, const Node& area, WindowParts& parts) {
    const Node box(area, "fieldset", "element frame");
    Node(box, "legend").text(frame.Caption);
    const auto inside = std::make_shared<Canvas>(frame, &frame, Node(box, "div", "inside"), parts);
    parts.syncs.emplace_back([box, inside, &frame, &canvas, &parts] {
        box.attribute_if("disabled", !frame.Enabled);
        canvas.place(box, frame);
        inside->sync();
        for (const Control& control : frame.controls) {
            if (auto* const* text_box = std::get_if<TextBox*>(&control))
                parts.text_boxes[*text_box].attribute("aria-label", words_of(frame));
        }
    });
    build_controls(frame, *inside, box, parts);
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

void build(TextBox& box, const Canvas& canvas, const Node& area, WindowParts& parts) {
    const Node input(area, "input", "element text-box");
    set_font(input, box.Font);
    for (const auto& [name, value] :
         {std::pair{"autocomplete", "off"}, {"spellcheck", "false"}, {"enterkeyhint", "done"}}) {
        input.attribute(name, value);
    }
    parts.text_boxes[&box] = input;
    listen_to(input, box, parts);
    parts.syncs.emplace_back([input, &box, &canvas] {
        if (taken(page_value(input.handle())) != box.Text)
            page_set(input.handle(), "value", box.Text.c_str());
        canvas.place(input, box);
    });
}

void build(PictureBox& box, const Canvas& canvas, const Node& area, WindowParts& parts) {
    const auto view = std::make_shared<PictureView>(area, "element picture-box", parts.pictures);
    parts.syncs.emplace_back([view, &box, &canvas, &parts] {
        canvas.place(view->node(), box);
        if (box.Visible) view->show(box.Picture, parts.prepared());
    });
}

void build(RichTextBox& box, const Canvas& canvas, const Node& area, WindowParts& parts) {
    const Node view(area, "div", "element rich-text");
    set_font(view, box.Font);
    view.turn("columns", font_kind(box.Font.family) == FontKind::FixedPitch);
    view.attribute("tabindex", "0");
    view.attribute("role", "document");
    parts.syncs.emplace_back([view, &box, &canvas, shown = std::string()]() mutable {
        canvas.place(view, box);
        if (shown == box.TextRTF) return;
        shown = box.TextRTF;
        page_set(view.handle(), "textContent", "");
        if (const auto text = read_rtf(box.TextRTF)) show_rich_text(*text, box, view);
        page_set(view.handle(), "scrollTop", "0");
    });
}

}  // namespace

void build_controls(Container& container, const Canvas& canvas, const Node& area,
                    WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, canvas, area, parts); }, control);
    }
}

}  // namespace solvanta::web
