#include "front_ends/web/host.h"

#include <utility>

namespace solvanta::web {

WebHost::WebHost() {
    page_.listen("resize", [this](const PageEvent&) {
        lay_out();
        deliver(nullptr);
    });
    for (const char* going : {"pagehide", "saving"})
        page_.listen(going, [this](const PageEvent&) { save(); });
    // A key held down since it ended or opened something is not meant for the button it meets.
    page_.listen("keydown", [](PageEvent& event) {
        event.taken_over = event.repeated && event.key == "Enter";
    });
    // A press moves the keyboard's focus to where text can be typed or marked, and nowhere else.
    page_.listen("mousedown", [](PageEvent& event) {
        event.taken_over = page_event_within("input, .rich-text, dialog button, footer") == 0;
    });
    page_.listen("contextmenu", [](PageEvent& event) {
        event.taken_over =
            page_event_within(".client") != 0 && page_event_within("input, .rich-text") == 0;
    });
}

FormWindow& WebHost::create_window(Form& form) {
    WindowParts parts{.deliver = [this](Event event) { deliver(std::move(event)); },
                      .pictures = pictures_,
                      .announce = [this](const std::string& text) { announcer_.say(text); },
                      .scale = Scale(),
                      .syncs = {},
                      .text_boxes = {}};
    FormWindow& window =
        add(std::make_unique<FormWindow>(form, windows_, std::move(parts), windows().empty(),
                                         [this](FormWindow& closed) { close(closed); }));
    lay_out();
    return window;
}

void WebHost::open_box(const std::string& text, Buttons buttons) {
    box_.emplace(windows_, text, buttons, [this](Answer given) {
        box_.reset();
        answer(given);
    });
}

void WebHost::sync() {
    WindowHost::sync();
    page_keep_focus();
}

void WebHost::end() {
    if (ended) ended();
}

std::string WebHost::program_directory() const {
    return ".";  // what the program names is beside the page
}

LocalTime WebHost::local_time() const {
    return {page_local_time(0), page_local_time(1), page_local_time(2), page_local_time(3),
            page_local_time(4)};
}

LocaleTexts WebHost::locale_texts() const {
    LocaleTexts texts;
    int what = 0;
    for (std::string& month : texts.month_abbreviations)
        month = taken(page_locale_text(what++));
    texts.time_separator = taken(page_locale_text(what++));
    texts.decimal_separator = taken(page_locale_text(what));
    return texts;
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

void WebHost::close(FormWindow& window) {
    hide(window.form());
    WindowHost::close(window);
}

void WebHost::lay_out() {
    if (windows().empty()) return;
    const Size page = page_size();
    const FormWindow& table = *windows().front();
    const Layout layout = layout_for(page, table.client_size(), table.cards_height(),
                                     page_touched() != 0, largest_scale);
    windows_.turn("compact", layout.compact);
    windows_.turn("sideways", layout.sideways);
    for (const Owner& window : windows()) {
        window->scale(
            window == windows().front()
                ? layout.scale
                : scale_beside(page, window->client_size(), layout.compact ? 1 : layout.scale));
    }
    page_draws(table.prepared());
}

}  // namespace solvanta::web
