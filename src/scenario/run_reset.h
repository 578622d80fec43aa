// Clears the results of the view for a new Compute. Levels, heights, terrain, class, wind, humidity and probit
// constants survive, and so does the row in the study.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "toxic/fields.h"
#include "toxic/state.h"

namespace noldarz {

class RunReset {
 public:
  struct Sees {
    SweepState& sweep;
    LevelState& passes;
    LimitState& limits;
    RawLimitState& rawLimits;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const CommandFields& command;
    const ToxicFields& toxic;
    Desktop& desktop;
  };
  explicit RunReset(const Sees& sees) : sees_(sees) {}

  /// A failing step shows a box with its number, and the next one runs.
  void resetRunView();

 private:
  void clearState();
  void clearResults(const Trap& trap);
  void openInputs(const Trap& trap);

  Sees sees_;
};

}  // namespace noldarz
