#pragma once

#include "platform/host.h"
#include "view/windows.h"

namespace solvanta {

class Form_Main;

/// The best-times window: a snapshot of the list, taken each time it is shown.
class Form_Highscore : public BestTimesWindow {
  public:
    /// `table` owns the list, `host` shows the windows; both must outlive the form.
    Form_Highscore(Form_Main& table, Host& host);

  private:
    /// Has no form of its own: the window may be closed, and the form gone, while the box is open.
    static void Comm_clear_highscore_Click(Form_Main& table, Host& host);
};

}  // namespace solvanta
