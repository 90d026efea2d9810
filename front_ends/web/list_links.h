#pragma once

#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"

namespace solvanta::web {

/// The links below the table by which the best-times list goes to a file of the player's and comes
/// from one. A chosen file that is no such list, byte for byte, changes nothing; a name still being
/// entered goes into the list before another one takes its place.
class ListLinks {
  public:
    ListLinks(Form_Main& table, WebHost& host, WebFiles& files);

    void hide() const;

  private:
    void save() const;
    void load(const std::string& bytes);

    Form_Main& table_;
    WebHost& host_;
    WebFiles& files_;
    std::string path_;
    Node links_;
    Node save_;
    Node load_;
    Node note_;
};

}  // namespace solvanta::web
