#pragma once

#include <optional>
#include <string>

#include "files/files.h"
#include "front_ends/web/node.h"

namespace solvanta::web {

/// The program's files in a browser. What it writes goes to the storage that the browser keeps for
/// the page, byte for byte; putting a file there is one step, which the browser makes whole or not
/// at all. The page's element `note` tells the player when it won't outlast the page.
class WebFiles final : public Files {
  public:
    /// The file at `help` is the one beside the page that can be read: it is fetched ahead, so that
    /// it can be shown at the moment of the click, and anew after each reading.
    explicit WebFiles(std::string help);

    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override;
    std::error_code replace(const std::string& path, std::string_view bytes) override;

  private:
    void fetch_help();
    void tell_whether_kept(bool kept);

    std::string help_path_;
    std::optional<std::string> help_;  // none until it has come
    Node note_ = Node::find("note");
    bool is_kept_ = true;
};

}  // namespace solvanta::web
