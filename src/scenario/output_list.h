// The list of outputs `prntprv`, which the close-out of a press opens: one of its entries brings the view of that output.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "platform/view.h"

namespace noldarz {

class OutputList {
 public:
  /// Subscribes the choice of an entry.
  OutputList(View& view, SweepState& sweep, LevelState& passes, const CommandFields& command, Desktop& desktop,
             StatusLine& status)
      : sweep_(sweep), passes_(passes), list_(command.prntprv), desktop_(desktop), status_(status) {
    view.on(list_, Event::click, [this] { prntprv_Click(); });
  }

 private:
  void prntprv_Click() {
    sweep_.distSweep = 0;
    sweep_.bgnLevel = 0;
    passes_.sweepLevel = passes_.widthLevel = passes_.levelIdx = 0;
    status_.say("\"" + list_.text() + "\" is not part of this version.");
    desktop_.clearClipboard();
  }

  SweepState& sweep_;
  LevelState& passes_;
  Field& list_;
  Desktop& desktop_;
  StatusLine& status_;
};

}  // namespace noldarz
