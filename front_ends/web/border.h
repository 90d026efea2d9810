#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>

// The border between the program and the page: functions of border.js, and what they call here.
// Texts are UTF-8 and end with a zero byte.

extern "C" {
int page_body();
int page_find(const char* id);
int page_create(int parent, const char* tag, const char* class_name);
void page_forget(int handle);
void page_remove(int handle);
void page_text(int handle, const char* text);
void page_attribute(int handle, const char* name, const char* value);
void page_style(int handle, const char* property, const char* value);
void page_class(int handle, const char* name, int on);
char* page_value(int handle);
void page_set_value(int handle, const char* value);
void page_focus(int handle);
int page_has_focus(int handle);
void page_scroll_top(int handle);
void page_listen(int handle, int kind);
void page_listen_everywhere();
double page_left(int handle);
double page_top(int handle);
double page_node_width(int handle);
double page_node_height(int handle);
void page_focus_first(int handle);
double page_width();
double page_height();
double page_ratio();
int page_touched();
int page_ask(int handle);
void page_close_dialog(int handle);
void page_fetch(const char* url, int job);
char* page_picture_url(const char* bytes, std::size_t length, const char* type);
void page_drop_url(const char* url);
int page_store(const char* name, const char* bytes, std::size_t length);
int page_stored(const char* name, char** block);
void page_start_timer(int timer, int interval);
void page_stop_timer(int timer);
int page_local_time(int part);
char* page_locale_text(int what);
void page_save_file(const char* name, const char* bytes, std::size_t length);
void page_load_file(int job);
}

namespace solvanta::web {

/// Takes over a text that the page has put into the program's memory.
inline std::string taken(char* text) {
    const std::unique_ptr<char, decltype(&std::free)> block(text, &std::free);
    return block.get();
}

}  // namespace solvanta::web
