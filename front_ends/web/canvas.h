#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "front_ends/web/double_press.h"
#include "front_ends/web/window_parts.h"
#include "front_ends/common/mouse.h"
#include "front_ends/common/spoken_changes.h"
#include "front_ends/common/walk.h"

namespace solvanta::web {

/// The picture elements and labels of a container as elements within `area`, which takes the
/// mouse, the finger and the arrow keys for all of them.
class Canvas {
  public:
    Canvas(Container& container, const Node& area, WindowParts& parts);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Brings everything in line with the container.
    void sync();

    /// To be told of a press anywhere else in the page.
    void forget_press();

    /// The page's element of the area.
    const Node& area() const { return area_; }

  private:
    struct Drawn {
        PictureElement* element = nullptr;
        Node node;
        std::unique_ptr<PictureView> view;
        PictureElement shown;  // what the page has
        std::string name;      // and what it says for it
    };

    void add(PictureElement& element);
    void add(Label& label);
    void bring_in_line(Drawn& drawn) const;
    void sync_walk();
    void listen();
    void press(const PageEvent& event);
    void walk(const std::string& key);
    void click_current(bool twice);
    void go_to(PictureElement* place);
    Drawn* drawn_of(const PictureElement* element);
    Twips to_twips_x(double x) const;
    Twips to_twips_y(double y) const;

    Container& container_;
    const Node& area_;
    WindowParts& parts_;
    Mouse mouse_;
    DoublePress double_press_;
    std::deque<Drawn> drawn_;
    std::vector<std::function<void()>> label_syncs_;
    PictureElement* current_ = nullptr;  // where the walk is
    SpokenChanges changes_;
};

}  // namespace solvanta::web
