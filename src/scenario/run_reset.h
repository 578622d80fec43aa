// Clears the results of the view for a new Compute. Levels, heights, terrain, class, wind, humidity and probit constants
// survive, and so does the row in the study.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "toxic/fields.h"
#include "toxic/state.h"

namespace noldarz {

class RunReset {
 public:
  RunReset(SweepState& sweep, LevelState& passes, LimitState& limits, RawLimitState& rawLimits,
           const ScenarioInputs& in, const LevelFields& level, const ResultFields& result, const CommandFields& command,
           const ToxicFields& toxic, Desktop& desktop);

  /// A failing step shows a box with its number, and the next one runs.
  void resetRunView();

 private:
  void clearState();
  void clearResults(const Trap& trap);
  void openInputs(const Trap& trap);

  SweepState& sweep_;
  LevelState& passes_;
  LimitState& limits_;
  RawLimitState& rawLimits_;
  const ScenarioInputs& in_;
  const LevelFields& level_;
  const ResultFields& result_;
  const CommandFields& command_;
  const ToxicFields& toxic_;
  Desktop& desktop_;
};

}  // namespace noldarz
