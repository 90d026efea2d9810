#pragma once

#include <string>
#include <vector>

#include "front_ends/web/node.h"
#include "platform/host.h"

namespace solvanta::web {

/// A modal box over the page, open for as long as this object lives.
class MessageBox {
  public:
    /// `answered` is called, as an event, when the player presses a button or closes the box; it
    /// may destroy the box.
    MessageBox(const Node& page, const std::string& text, Buttons buttons,
               const Answered& answered);
    MessageBox(const MessageBox&) = delete;
    MessageBox& operator=(const MessageBox&) = delete;
    ~MessageBox();

  private:
    Node add_button(const Node& parent, const char* class_name, const std::string& caption,
                    const Listener& pressed);

    Node dialog_;
    std::vector<Node> buttons_;
};

}  // namespace solvanta::web
