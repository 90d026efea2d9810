#include "front_ends/web/host.h"

#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {

WebHost::WebHost(double largest_scale)
    : largest_scale_(largest_scale),
      page_(Node::find("windows")),
      announcer_(Node::find("announcer")) {
    listen_to_page(EventKind::Resize, [this](const PageEvent&) {
        lay_out();
        if (!is_quitting()) sync();
    });
    listen_to_page(EventKind::Leave, [this](const PageEvent&) { save(); });
    listen_to_page(EventKind::AnyPress, [this](const PageEvent& event) {
        for (const Owner& window : windows())
            window->pressed(event.node);
    });
}

WebHost::~WebHost() {
    clear();
    for (const EventKind kind : {EventKind::Resize, EventKind::Leave, EventKind::AnyPress})
        listen_to_page(kind, [](const PageEvent&) {});
}

FormWindow& WebHost::create_window(Form& form) {
    WindowParts parts{[this](const Event& event) { deliver(event); },
                      pictures_,
                      [this](const std::string& text) { announcer_.text(text); },
                      1,
                      {},
                      {},
                      {}};
    FormWindow& window =
        add(std::make_unique<FormWindow>(form, page_, std::move(parts), windows().empty(),
                                         [this](FormWindow& closed) { close(closed); }));
    lay_out();
    return window;
}

void WebHost::bring_forward(FormWindow& window) {
    for (const Owner& other : windows())
        other->step_back();
    window.bring_forward();
}

void WebHost::hide(Form& form) {
    FormWindow* const window = window_of(form);
    if (!window || !window->is_visible()) return;
    window->hide();
    for (const Owner& other : windows()) {
        if (other->is_visible()) return bring_forward(*other);
    }
}

Answer WebHost::message(const std::string& text, Buttons buttons) {
    if (is_quitting()) return answer_of_closing(buttons);
    sync();
    MessageBox box(page_, text, buttons);
    boxes_.push_back(&box);
    const Answer answer = box.ask();
    boxes_.pop_back();
    return answer;
}

void WebHost::close_boxes() {
    for (const MessageBox* box : boxes_)
        box->close();
}

std::string WebHost::program_directory() const {
    return ".";  // what the program names is beside the page
}

LocalTime WebHost::local_time() const {
    return {page_local_time(0), page_local_time(1), page_local_time(2), page_local_time(3),
            page_local_time(4)};
}

LocaleTexts WebHost::locale_texts() const {
    constexpr int time_separator = 12;
    constexpr int decimal_separator = 13;
    LocaleTexts texts;
    int what = 0;
    for (std::string& month : texts.month_abbreviations)
        month = taken(page_locale_text(what++));
    texts.time_separator = taken(page_locale_text(time_separator));
    texts.decimal_separator = taken(page_locale_text(decimal_separator));
    return texts;
}

void WebHost::lay_out() {
    if (windows().empty()) return;
    const Size page{page_width(), page_height()};
    const FormWindow& table = *windows().front();
    const Layout layout = layout_for(page, table.client_size(), table.cards_height(),
                                     page_touched() != 0, largest_scale_);
    page_.turn("compact", layout.compact);
    page_.turn("sideways", layout.sideways);
    for (const Owner& window : windows()) {
        window->scale(
            window == windows().front()
                ? layout.scale
                : scale_beside(page, window->client_size(), layout.compact ? 1 : layout.scale));
    }
}

void WebHost::close(FormWindow& window) {
    hide(window.form());
    WindowHost::close(window);
}

void WebHost::end() {
    if (const Event event = std::exchange(ended, nullptr)) event();
}

}  // namespace solvanta::web
