// The command `comput` of the main view: a command of two presses with one shared close-out. The first press finds
// the maximum ground concentration and the peak, the second one turns the levels into isopleths.
#pragma once

#include "engine/close_out.h"
#include "engine/effects.h"
#include "engine/fields.h"
#include "engine/level_passes.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "engine/sweep.h"
#include "platform/desktop.h"
#include "platform/view.h"

namespace noldarz {

class Compute {
 public:
  struct Sees {
    View& mainView;
    ModelState& model;
    SweepState& sweep;
    LevelState& passes;
    LimitState& limits;
    const ScenarioInputs& in;
    const ResultFields& result;
    const CommandFields& command;
    Sweep& search;
    LevelPasses& levelPasses;
    CloseOut& closeOut;
    Progress& progress;
    Desktop& desktop;
    const PressPorts& ports;
  };
  explicit Compute(const Sees& sees) : sees_(sees) {}

  /// A press. Its trap takes every run-time failure: the pointer goes to default, the main view is made visible, the
  /// wait view closes, and the press goes on after the failing statement.
  void comput_Click();

 private:
  Trap pressTrap();
  void firstPress(const Trap& press);

  Sees sees_;
};

}  // namespace noldarz
