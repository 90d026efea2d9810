#pragma once

#include <memory>
#include <string>
#include <vector>

#include <oleacc.h>

#include "front_ends/common/keyboard.h"
#include "front_ends/common/voice.h"
#include "front_ends/win32/window_parts.h"

namespace solvanta::win32 {

/// The stop of the Tab key for a form's canvas: a window without extent, which takes the keys for
/// its places and is the object in which screen readers find them.
class TableStop final : public Window {
  public:
    TableStop(Container& table, WindowParts& parts, HWND parent);
    ~TableStop() override;

    /// Tells those who listen what is new.
    void sync() override;

    /// The places in the order of their numbers as objects, the first of which is 1.
    std::vector<PictureElement*> places() const;

    /// The number of the place that has the keyboard; 0 when the canvas has it not.
    int focused() const;

    /// Where a place lies on the screen, in pixels.
    RECT place_on_screen(const PictureElement& place) const;

    void click(const PictureElement& place) const { keyboard_.click(place); }
    void walk_to(const PictureElement& place);

    /// What was said last, where the system itself says nothing.
    const std::string& said() const { return said_; }

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    LRESULT give_object(const Message& message);
    void tell(const News& news);
    void say(const std::string& text);

    Container& table_;
    WindowParts& parts_;
    Keyboard keyboard_;
    Voice voice_;
    struct Release {
        void operator()(IUnknown* object) const { object->Release(); }
    };
    std::unique_ptr<IAccessible, Release> object_;  // since somebody has asked for it
    std::string said_;
};

}  // namespace solvanta::win32
