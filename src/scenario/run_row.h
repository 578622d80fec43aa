// The row of the run in force: found or created for the inputs, kept up to date, filled with the results of a press. The
// step runs from the timer tmr_1, so that the event that asked for it has ended.
#pragma once

#include "engine/effects.h"
#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "scenario/links.h"
#include "scenario/queries.h"
#include "scenario/run_list.h"
#include "scenario/state.h"
#include "toxic/distance_limits.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class RunRow : public RunStore {
 public:
  RunRow(ScenarioState& state, const ScenarioInputs& in, const LevelFields& level, const ResultFields& result,
         const ScenarioFields& fields, MainLinks& links, Queries& queries, RunList& list, ProbitConstants& probit,
         DistanceLimits& limits, Desktop& desktop, StatusLine& status);

  /// The run row step: finds the row by the name of the run (`scnrKeyByText` 1) or by scenario and class (0), creates it
  /// when there is none, brings it up to date when there is one, fills the list of stored runs, and brings the levels of a
  /// finished run back. A failed step is skipped.
  void saveRunRow();

  /// Before a press: a step that is still asked for runs now, so that the results go into the row of their run.
  void settleRequest();

  /// The levels that the row holds, with their captions, come into the view. False, with nothing changed, for a row without
  /// levels.
  bool takeStoredLevels();

  /// Stores the flammable mass (lbm) in the working scenario.
  void storeFlammableMass(double mass) override;
  /// Writes the results into the row, in one change: numbers with two decimals, marks as they stand.
  void storeRun() override;
  /// Whether the last storeRun has done so.
  bool isStored() const { return stored_; }

 private:
  void useRunQuery();
  void create(const Trap& skipping);
  void bringUpToDate(const Trap& skipping);
  void update();
  void standOnRow(const Trap& skipping);
  void restoreLevels();
  void settleFocus();
  void tellOutcome(int found);

  ScenarioState& state_;
  const ScenarioInputs& in_;
  const LevelFields& level_;
  const ResultFields& result_;
  const ScenarioFields& fields_;
  MainLinks& links_;
  Queries& queries_;
  RunList& list_;
  ProbitConstants& probit_;
  DistanceLimits& limits_;
  Desktop& desktop_;
  StatusLine& status_;
  bool focusDone_ = false;
  bool stored_ = false;
};

}  // namespace noldarz
