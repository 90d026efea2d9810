#pragma once

#include <functional>
#include <string>

#include "front_ends/web/host.h"

namespace solvanta::web {

/// The links below the table by which the best-times list goes to a file of the player's and comes
/// from one. A chosen file that is no such list changes nothing.
class ListLinks {
  public:
    /// `list` gives the bytes of the list; `take` puts others in their place, as an event of
    /// `host`, and answers whether they could be stored.
    ListLinks(WebHost& host, std::function<std::string()> list,
              std::function<bool(const std::string&)> take);

    void hide() const { links_.attribute_if("hidden", true); }

  private:
    void save() const;
    void load(const std::string& bytes) const;

    WebHost& host_;
    std::function<std::string()> list_;
    std::function<bool(const std::string&)> take_;
    Node links_ = Node::find("links");
    Node save_ = Node::find("save-list");
    Node load_ = Node::find("load-list");
    Node note_ = Node::find("note");
};

}  // namespace solvanta::web
