#pragma once

#include <map>
#include <string>

#include "platform/elements.h"

namespace solvanta {

/// Tells what has changed on the places of a container, for those who listen.
class SpokenChanges {
  public:
    using Names = std::map<const PictureElement*, std::string>;

    /// Asks each place once for its name. The names that differ from those at the last call, in
    /// one text; empty when nothing has changed, and when so much has, as by a deal, that nobody
    /// could follow.
    std::string since_last_time(const Container& container);

    /// The places as of the last call, and their names.
    const Names& names() const { return names_; }

  private:
    Names names_;
};

}  // namespace solvanta
