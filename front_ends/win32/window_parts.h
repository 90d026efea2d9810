#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "front_ends/win32/pictures.h"
#include "front_ends/win32/window.h"
#include "platform/elements.h"

namespace solvanta::win32 {

/// Runs one event of an element and then brings all windows in line with their forms.
using Deliver = std::function<void(Event)>;

/// What a form's window and its controls share.
struct WindowParts {
    Deliver deliver;
    Pictures& pictures;
    Scale scale;                      ///< of the form
    std::optional<Color> background;  ///< of the form's client area
    std::vector<std::unique_ptr<Window>> controls;
    std::map<const TextBox*, HWND> text_boxes;
    const PictureElement* ringed = nullptr;  ///< the place that has the keyboard, if it is marked
    std::function<void()> hide_ring;         ///< to be told when the mouse is used; may be empty
};

/// Whether a control shows as soon as its parent does.
bool is_shown(HWND control);

/// Puts a control where its element lies, as far as that is within its parent, and shows or hides
/// it.
void sync_place(HWND control, const Element& element, const Scale& scale);

/// Gives a control its text and its font, if they are others than it has.
void sync_text(HWND control, const std::string& text, HFONT font);

/// The text of a control.
std::string text_of(HWND control);

}  // namespace solvanta::win32
