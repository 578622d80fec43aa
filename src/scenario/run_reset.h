// Clears the results of the view for a new Compute. Levels, heights, terrain, class, wind, humidity and probit constants
// survive, and so does the row in the study.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "scenario/fields.h"
#include "toxic/state.h"

namespace noldarz {

class RunReset {
 public:
  RunReset(SweepState& sweep, LevelState& passes, RawLimitState& limits, const ScenarioInputs& in,
           const LevelFields& level, const ResultFields& result, const CommandFields& command,
           const ScenarioFields& fields, Desktop& desktop);

  /// A failing step shows a box with its number, and the next one runs.
  void resetRunView();

 private:
  void clearState();
  void clearResults(const Trap& trap);
  void openInputs(const Trap& trap);

  SweepState& sweep_;
  LevelState& passes_;
  RawLimitState& limits_;
  const ScenarioInputs& in_;
  const LevelFields& level_;
  const ResultFields& result_;
  const CommandFields& command_;
  const ScenarioFields& fields_;
  Desktop& desktop_;
};

}  // namespace noldarz
