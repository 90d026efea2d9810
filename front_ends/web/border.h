#pragma once

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>

// The border between the program and the page: functions of border.js, and what they tell here.
// Texts are UTF-8 and end with a zero byte. The node 0 is the page itself.

extern "C" {
int page_find(const char* id);
int page_create(int parent, const char* tag, const char* class_name);
void page_forget(int node);
void page_set(int node, const char* property, const char* text);
void page_attribute(int node, const char* name, const char* value);
void page_attribute_if(int node, const char* name, int present);
void page_style(int node, const char* property, const char* value);
void page_turn(int node, const char* class_name, int on);
char* page_value(int node);
double page_number(int node, const char* property);
void page_call(int node, const char* method);
void page_focus(int node);
void page_focus_first(int node);
void page_keep_focus();
int page_has_focus(int node);
void page_listen(int node, const char* type, int listener);
double page_event(const char* name);
char* page_event_key();
int page_event_within(const char* selector);
void page_capture(int node);
double page_ratio();
int page_touched();
void page_soon(int listener);
void page_start_ticks(int listener, int interval);
void page_stop_ticks(int listener);
void page_draws(int times);
void page_fetch(const char* url, int listener);
void page_load_file(int listener, std::size_t limit);
void page_save_file(const char* name, const char* bytes, std::size_t length);
char* page_picture_url(const char* bytes, std::size_t length, const char* type);
int page_store(const char* name, const char* bytes, std::size_t length);
int page_stored(const char* name, char** block);
int page_local_time(int part);
char* page_locale_text(int what);

/// An event of the page, with the bytes of the file that has come, or null. Answers whether its
/// listener has taken it over.
int web_event(int listener, const char* bytes, std::size_t length);
}

namespace solvanta::web {

/// Takes over a text that the page has put into the program's memory.
inline std::string taken(char* text) {
    const std::unique_ptr<char, decltype(&std::free)> block(text, &std::free);
    return block.get();
}

/// What the page tells of the event at hand.
struct PageEvent {
    double x = page_event("clientX");  ///< in the page
    double y = page_event("clientY");
    double inside_x = page_event("offsetX");  ///< in the element that it is meant for
    double inside_y = page_event("offsetY");
    double milliseconds = page_event("timeStamp");  ///< by a steady clock
    std::string key = taken(page_event_key());  ///< of the row of digits the digit, even with Shift
    bool alt = page_event("altKey") != 0;
    bool modified = alt || page_event("ctrlKey") != 0 || page_event("metaKey") != 0;
    bool shift = page_event("shiftKey") != 0;
    bool repeated = page_event("repeat") != 0;        ///< by a key held down
    bool composing = page_event("isComposing") != 0;  ///< a part of what an input method writes
    bool is_synthetic = page_event("detail") == 0;    ///< a click by no hand: a screen reader's
    bool is_own = page_event("eventPhase") == 2;      ///< not meant for an element within
    bool is_left = page_event("isPrimary") != 0 && page_event("button") == 0;  ///< or a finger
    std::optional<std::string> bytes;  ///< of a file that has come
    bool taken_over = false;           ///< set by a listener: the browser does nothing with it
};

using Listener = std::function<void(PageEvent&)>;

/// The number by which the page tells `listener` of events, until it is removed. It is copied
/// before it runs, so that it may remove itself.
int add_listener(Listener listener);
void remove_listener(int number);
/// Nothing that was asked of the page is told of any more.
void remove_all_listeners();

/// Calls `act` from the page's event loop.
void soon(std::function<void()> act);

/// Reads a file beside the page; `path` as the program names its files. The listener gets no bytes
/// when it can't be read.
void fetch(const std::string& path, Listener fetched);

/// Lets the player choose a file of their own and reads it, but of one longer than `limit` bytes no
/// more than shows that. The listener gets no bytes when they don't, or it can't be read.
void choose_file(std::size_t limit, Listener chosen);

}  // namespace solvanta::web
