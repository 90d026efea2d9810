#include "front_ends/web/message_box.h"

#include <string_view>

#include "front_ends/web/border.h"

namespace solvanta::web {
namespace {

struct Choice {
    const char* caption;
    const char* key;  // pressed with Alt
    Answer answer;
};

/// The buttons of a box, the default one first, the one that closing means last.
std::vector<Choice> choices(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
            return {{"Ja", "j", Answer::Yes}, {"Nein", "n", Answer::No}};
        case Buttons::OkCancel:
            return {{"OK", "o", Answer::Ok}, {"Abbrechen", "a", Answer::Cancel}};
        case Buttons::Ok:
            break;
    }
    return {{"OK", "o", Answer::Ok}};
}

}  // namespace

MessageBox::MessageBox(const Node& page, const std::string& text, Buttons buttons)
    : buttons_(buttons), dialog_(page, "dialog", "box") {
    dialog_.attribute("aria-label", "Solvanta");
    Node title(dialog_, "header", "title-bar");
    Node caption(title, "span", "caption");
    caption.text("Solvanta");
    caption.leave_to_parent();
    Node close(title, "button", "close");
    close.text("✕");
    close.attribute("aria-label", "Schließen");
    close.attribute("tabindex", "-1");
    close.leave_to_parent();
    title.leave_to_parent();
    Node words(dialog_, "p");
    words.text(text);
    words.leave_to_parent();
    row_ = Node(dialog_, "div", "buttons");
    int number = 0;
    for (const Choice& choice : choices(buttons)) {
        Node button(row_, "button", "choice");
        button.text(choice.caption);
        button.attribute("value", std::to_string(number));
        button.attribute("data-key", choice.key);
        button.attribute_if(number++ == 0, "autofocus");
        button.leave_to_parent();
    }
}

Answer MessageBox::ask() {
    const int number = page_ask(dialog_.handle());
    if (number < 0) return answer_of_closing(buttons_);
    return choices(buttons_).at(static_cast<std::size_t>(number)).answer;
}

void MessageBox::close() const {
    page_close_dialog(dialog_.handle());
}

}  // namespace solvanta::web
