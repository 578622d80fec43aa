// The list of outputs `prntprv`, which the close-out of a press opens: one of its entries brings the view of that
// output.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "platform/view.h"
#include "study/outputs.h"

namespace noldarz {

class OutputList {
 public:
  struct Sees {
    View& view;
    SweepState& sweep;
    LevelState& passes;
    const CommandFields& command;
    const Outputs& outputs;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Fills the list, and subscribes the choice of an entry.
  explicit OutputList(const Sees& sees) : sees_(sees), list_(sees.command.prntprv) {
    list_.setEntries({outputEntries.begin(), outputEntries.end()});
    sees_.view.on(list_, Event::click, [this] { prntprv_Click(); });
  }

 private:
  void prntprv_Click() {
    sees_.sweep.distSweep = 0;
    sees_.sweep.bgnLevel = 0;
    sees_.passes.sweepLevel = sees_.passes.widthLevel = sees_.passes.levelIdx = 0;
    const int entry = list_.wordIndex(outputEntries);
    if (entry < 0 || !sees_.outputs.open(static_cast<std::size_t>(entry)))
      sees_.status.say("\"" + list_.text() + "\" is not part of this version.");
    sees_.desktop.clearClipboard();
  }

  Sees sees_;
  Field& list_;
};

}  // namespace noldarz
