#pragma once

#include <string>
#include <vector>

#include "front_ends/web/node.h"
#include "platform/host.h"

namespace solvanta::web {

/// A modal box over the page. One closed by its close box, by Esc or by `close` answers as closing
/// does.
class MessageBox {
  public:
    MessageBox(const Node& page, const std::string& text, Buttons buttons);

    /// Shows the box and waits for the answer; timers go on.
    Answer ask();

    void close() const;

  private:
    Buttons buttons_;
    Node dialog_;
    Node row_;
};

}  // namespace solvanta::web
