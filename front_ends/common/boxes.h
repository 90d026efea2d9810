#pragma once

#include <span>
#include <string>

#include "platform/host.h"

namespace solvanta {

/// A button of a message box. Its caption is German whatever the system's language; '&' stands
/// before the letter that presses it, where one is marked.
struct BoxButton {
    const char* caption;
    Answer answer;
};

/// The buttons of a box in their order: the default one first, last the one that Esc and the close
/// box mean.
std::span<const BoxButton> buttons_of(Buttons buttons);

/// A caption without its mark.
std::string without_mark(std::string caption);

}  // namespace solvanta
