#include "front_ends/web/border.h"

#include <map>
#include <utility>

namespace solvanta::web {
namespace {

int last_listener = 0;

std::map<int, Listener>& listeners() {
    static std::map<int, Listener> all;
    return all;
}

/// A listener of one event.
int listen_once(Listener listener) {
    const int number = ++last_listener;
    listeners()[number] = [number, listener = std::move(listener)](PageEvent& event) {
        remove_listener(number);
        listener(event);
    };
    return number;
}

}  // namespace

int add_listener(Listener listener) {
    listeners()[++last_listener] = std::move(listener);
    return last_listener;
}

void remove_listener(int number) {
    listeners().erase(number);
}

void remove_all_listeners() {
    listeners().clear();
}

void soon(std::function<void()> act) {
    page_soon(listen_once([act = std::move(act)](const PageEvent&) { act(); }));
}

void fetch(const std::string& path, Listener fetched) {
    page_fetch(path.c_str(), listen_once(std::move(fetched)));
}

void choose_file(std::size_t limit, Listener chosen) {
    page_load_file(listen_once(std::move(chosen)), limit);
}

}  // namespace solvanta::web

int web_event(int listener, const char* bytes, std::size_t length) {
    using namespace solvanta::web;
    const auto found = listeners().find(listener);
    if (found == listeners().end()) return 0;
    PageEvent event;
    if (bytes) event.bytes.emplace(bytes, length);
    const Listener listening = found->second;
    listening(event);
    return event.taken_over ? 1 : 0;
}
