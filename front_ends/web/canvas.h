#pragma once

#include <map>
#include <utility>
#include <vector>

#include "front_ends/common/keyboard.h"
#include "front_ends/common/mouse.h"
#include "front_ends/web/window_parts.h"

namespace solvanta::web {

/// The picture elements and labels of a container as elements within `area`, which takes the
/// mouse, the finger and the arrow keys for all of them.
class Canvas {
  public:
    /// `within` is the element that holds the container, unless that is the form.
    Canvas(Container& container, const Element* within, Node area, WindowParts& parts);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Brings everything in line with the container.
    void sync();

    /// Puts a node where its element lies in the container, and shows or hides it.
    void place(const Node& node, const Element& element) const;

  private:
    void add(PictureElement& element);
    void add(Label& label);
    void prepare(const PictureElement& element, const Node& node);
    void bring_in_line(const PictureElement& element, PictureView& view);
    void sync_walk();
    void listen();
    void press(const PageEvent& event);
    std::pair<Twips, Twips> place_in_twips(const PageEvent& event) const;
    void key(PageEvent& event);
    void stop_at(const PictureElement* place);
    const Node& node_of(const PictureElement* element) const { return views_.at(element).node(); }

    Scale scale(double ratio = 1) const;

    Container& container_;
    const Element* within_;
    Node area_;
    WindowParts& parts_;
    Mouse mouse_;
    std::map<const PictureElement*, PictureView> views_;
    std::vector<std::pair<Label*, Node>> labels_;
    Keyboard keyboard_;
    const PictureElement* stop_ = nullptr;  // the place that is a stop of the Tab key
};

}  // namespace solvanta::web
