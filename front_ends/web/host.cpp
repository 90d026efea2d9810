#include "front_ends/web/host.h"

#include <algorithm>
#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {

WebHost::WebHost(double largest_scale)
    : largest_scale_(largest_scale),
      page_(Node::find("windows")),
      announcer_(Node::find("announcer")) {
    listen_to_page(EventKind::Resize, [this](const PageEvent&) {
        lay_out();
        if (!quitting_) sync();
    });
    listen_to_page(EventKind::Leave, [this](const PageEvent&) { save(); });
    listen_to_page(EventKind::AnyPress, [this](const PageEvent& event) {
        for (const Window& window : windows_)
            window->pressed(event.node);
    });
}

WebHost::~WebHost() {
    for (const EventKind kind : {EventKind::Resize, EventKind::Leave, EventKind::AnyPress})
        listen_to_page(kind, [](const PageEvent&) {});
}

void WebHost::show(Form& form) {
    if (quitting_) return;
    FormWindow* window = window_of(form);
    if (!window) window = &create_window(form);
    window->sync();
    bring_forward(*window);
}

FormWindow& WebHost::create_window(Form& form) {
    WindowParts parts{[this](const Event& event) { deliver(event); },
                      pictures_,
                      [this](const std::string& text) { announcer_.text(text); },
                      1,
                      {},
                      {},
                      {}};
    windows_.push_back(std::make_unique<FormWindow>(form, page_, std::move(parts), windows_.empty(),
                                                    [this](FormWindow& window) { close(window); }));
    lay_out();
    return *windows_.back();
}

void WebHost::bring_forward(FormWindow& window) {
    for (const Window& other : windows_)
        other->step_back();
    window.bring_forward();
}

void WebHost::hide(Form& form) {
    FormWindow* const window = window_of(form);
    if (!window || !window->is_visible()) return;
    window->hide();
    for (const Window& other : windows_) {
        if (other->is_visible()) return bring_forward(*other);
    }
}

Answer WebHost::message(const std::string& text, Buttons buttons) {
    if (quitting_) return answer_of_closing(buttons);
    sync();
    MessageBox box(page_, text, buttons);
    boxes_.push_back(&box);
    const Answer answer = box.ask();
    boxes_.pop_back();
    return answer;
}

void WebHost::set_focus(TextBox& box) {
    sync();
    for (const Window& window : windows_) {
        if (window->focus(box)) return;
    }
}

void WebHost::quit() {
    quitting_ = true;
    for (const MessageBox* box : boxes_)
        box->close();
    settle();
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

void WebHost::save() {
    std::vector<Event> events;
    for (const Window& window : windows_)
        events.push_back(window->form().Saving);
    for (const Event& event : events)
        deliver(event);
}

FormWindow* WebHost::window_of(const Form& form) const {
    for (const Window& window : windows_) {
        if (&window->form() == &form) return window.get();
    }
    return nullptr;
}

void WebHost::deliver(const Event& event) {
    if (quitting_) return;
    ++running_events_;
    if (event) event();
    --running_events_;
    if (!quitting_) sync();
    settle();
}

void WebHost::sync() {
    for (const Window& window : windows_)
        window->sync();
}

void WebHost::lay_out() {
    if (windows_.empty()) return;
    const Size page{page_width(), page_height()};
    const FormWindow& table = *windows_.front();
    const Layout layout = layout_for(page, table.client_size(), table.cards_height(),
                                     page_touched() != 0, largest_scale_);
    page_.turn("compact", layout.compact);
    page_.turn("sideways", layout.sideways);
    for (const Window& window : windows_) {
        window->scale(window == windows_.front() ? layout.scale
                                                 : scale_beside(page, window->client_size(),
                                                                layout.compact ? 1 : layout.scale));
    }
}

void WebHost::close(FormWindow& window) {
    const Event closed = window.form().Closed;  // the handler may destroy the form
    hide(window.form());
    forget(window);
    deliver(closed);
}

void WebHost::forget(FormWindow& window) {
    window.let_go();
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const Window& other) { return other.get() == &window; });
    forgotten_.push_back(std::move(*found));
    windows_.erase(found);
}

/// Between events: closes all windows after `quit`, and destroys the windows let go of, which may
/// not be done while code of theirs is running.
void WebHost::settle() {
    if (running_events_ > 0) return;
    if (quitting_) {
        while (!windows_.empty())
            forget(*windows_.back());
        if (const Event event = std::exchange(ended, nullptr)) event();
    }
    forgotten_.clear();
}

}  // namespace solvanta::web
