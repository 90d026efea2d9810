#include "front_ends/web/ticks.h"

#include <map>
#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {
namespace {

std::map<int, std::function<void()>>& timers() {
    static std::map<int, std::function<void()>> all;
    return all;
}

}  // namespace

int start_ticks(int interval, std::function<void()> tick) {
    static int last = 0;
    timers()[++last] = std::move(tick);
    page_start_timer(last, interval);
    return last;
}

void stop_ticks(int timer) {
    page_stop_timer(timer);
    timers().erase(timer);
}

}  // namespace solvanta::web

extern "C" {

/// A tick is due.
__attribute__((used, visibility("default"))) void web_tick(int timer) {
    const auto found = solvanta::web::timers().find(timer);
    if (found == solvanta::web::timers().end()) return;
    const std::function<void()> tick = found->second;  // it may stop the timer
    tick();
}
}
