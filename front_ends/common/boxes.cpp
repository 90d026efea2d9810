#include "front_ends/common/boxes.h"

namespace solvanta {

std::span<const BoxButton> buttons_of(Buttons buttons) {
    static constexpr BoxButton yes_no[] = {{"&Ja", Answer::Yes}, {"&Nein", Answer::No}};
    static constexpr BoxButton ok_cancel[] = {{"OK", Answer::Ok}, {"Abbrechen", Answer::Cancel}};
    static constexpr BoxButton ok[] = {{"OK", Answer::Ok}};
    if (buttons == Buttons::YesNo) return yes_no;
    if (buttons == Buttons::OkCancel) return ok_cancel;
    return ok;
}

std::string without_mark(std::string caption) {
    std::erase(caption, '&');
    return caption;
}

}  // namespace solvanta
