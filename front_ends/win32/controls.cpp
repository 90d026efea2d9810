#include "front_ends/win32/controls.h"

#include "front_ends/win32/button.h"
#include "front_ends/win32/frame_box.h"
#include "front_ends/win32/name_edit.h"
#include "front_ends/win32/picture_view.h"
#include "front_ends/win32/rich_edit.h"

namespace solvanta::win32 {
namespace {

template <typename ControlWindow, typename Element>
HWND add(Element& element, HWND parent, WindowParts& parts) {
    parts.controls.push_back(std::make_unique<ControlWindow>(element, parts, parent));
    return parts.controls.back()->handle();
}

void build(CommandButton& button, HWND parent, WindowParts& parts) {
    add<Button>(button, parent, parts);
}

// First the frame: a control in a frame just shown can take the focus at once.
void build(Frame& frame, HWND parent, WindowParts& parts) {
    build_controls(frame, add<FrameBox>(frame, parent, parts), parts);
}

void build(TextBox& box, HWND parent, WindowParts& parts) {
    add<NameEdit>(box, parent, parts);
}

void build(PictureBox& box, HWND parent, WindowParts& parts) {
    add<PictureView>(box, parent, parts);
}

void build(RichTextBox& box, HWND parent, WindowParts& parts) {
    add<RichEdit>(box, parent, parts);
}

}  // namespace

void build_controls(Container& container, HWND parent, WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, parent, parts); }, control);
    }
}

}  // namespace solvanta::win32
