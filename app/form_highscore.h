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
};

}  // namespace solvanta
