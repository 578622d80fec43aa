// The program without a front: all views and routines, built and wired, and nothing else. A front makes one System
// on its Desktop and fires events.
#pragma once

#include "engine/close_out.h"
#include "engine/compute.h"
#include "engine/isopleth.h"
#include "engine/level_passes.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/sweep.h"
#include "platform/desktop.h"
#include "platform/view.h"
#include "scenario/main_view.h"
#include "system/run_state.h"

namespace noldarz {

class System {
 public:
  /// `effects`: what a press asks of the rooms above the engine; without it a press leaves these steps out.
  explicit System(Desktop& desktop, Effects* effects = nullptr);
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  Views& views() { return views_; }
  const RunState& state() const { return state_; }
  MainView& mainView() { return main_; }
  const Progress& progress() const { return progress_; }

 private:
  Views views_;
  RunState state_;
  MainView main_;
  PlumeModel plume_;
  Progress progress_;
  Sweep search_;
  Isopleth isopleth_;
  LevelPasses levelPasses_;
  CloseOut closeOut_;
  Compute compute_;
};

}  // namespace noldarz
