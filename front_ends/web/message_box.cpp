#include "front_ends/web/message_box.h"

#include "front_ends/common/boxes.h"

namespace solvanta::web {

MessageBox::MessageBox(const Node& page, const std::string& text, Buttons buttons,
                       const Answered& answered)
    : dialog_(page, "dialog", "box") {
    const Answer closing = buttons_of(buttons).back().answer;
    const Listener closed = [=](const PageEvent&) { answered(closing); };
    dialog_.attribute("aria-label", "Solvanta");
    dialog_.listen("close", closed);
    const Node title(dialog_, "header", "title-bar");
    Node(title, "span", "caption").text("Solvanta");
    const Node close = add_button(title, "close", "✕", closed);
    close.attribute("aria-label", "Schließen");
    close.attribute("tabindex", "-1");
    Node(dialog_, "p").text(text);
    const Node row(dialog_, "div", "buttons");
    for (const BoxButton& choice : buttons_of(buttons)) {
        add_button(row, "choice", without_mark(choice.caption),
                   [=](const PageEvent&) { answered(choice.answer); });
    }
    page_call(dialog_.handle(), "showModal");
    buttons_[1].focus();
}

MessageBox::~MessageBox() {
    page_call(dialog_.handle(), "close");
    dialog_.remove();
}

/// Alt and its first letter press it too.
Node MessageBox::add_button(const Node& parent, const char* class_name, const std::string& caption,
                            const Listener& pressed) {
    Node button = buttons_.emplace_back(parent, "button", class_name);
    button.text(caption);
    button.listen("click", pressed);
    dialog_.listen("keydown", [pressed, letter = caption.front()](PageEvent& event) {
        constexpr int small = 0x20;
        const bool is_letter = event.alt && event.key.size() == 1;
        if (is_letter && (event.key.front() | small) == (letter | small)) pressed(event);
    });
    return button;
}

}  // namespace solvanta::web
