// The row of the run in force: found or created for the inputs, kept up to date, filled with the results of a press.
// The step runs from the timer tmr_1, so that the event that asked for it has ended.
#pragma once

#include <optional>
#include <string>

#include "engine/effects.h"
#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "scenario/kept_inputs.h"
#include "scenario/run_list.h"
#include "scenario/state.h"
#include "study/fields.h"
#include "study/links.h"
#include "study/queries.h"
#include "study/state.h"
#include "toxic/distance_limits.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class RunRow : public RunStore {
 public:
  struct Sees {
    View& view;
    StudyState& study;
    ScenarioState& state;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const ProjectFields& project;
    const ScenarioFields& scenario;
    MainLinks& links;
    Queries& queries;
    RunList& list;
    ProbitConstants& probit;
    DistanceLimits& limits;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the step to its timer, and to what is about to write to the row.
  explicit RunRow(const Sees& sees) : sees_(sees) {
    sees_.view.on(sees_.scenario.tmr_1, Event::timer, [this] { saveRunRow(); });
    sees_.links.dt2a.beforeEdit([this] { provide(); });
  }

  /// The run row step: finds the row by the name of the run (`scnrKeyByText` 1) or by scenario and class (0), creates
  /// it when there is none, brings it up to date when there is one, fills the list of stored runs, and brings the
  /// levels of a finished run back. A failed step is skipped. When another program holds the file, nothing in the view
  /// changes: the row is owed, and the cause stays in the status line.
  void saveRunRow();

  /// Before a press: a step that is still asked for or owed runs now, so that the results go into the row of their run.
  void settleRequest();
  /// Before the row is written to: a step that is owed runs now. Fails with storeLocked while it can't.
  void provide();

  /// The levels that the row holds, with their captions, come into the view. False, with nothing changed, for a row
  /// without levels.
  bool takeStoredLevels();

  /// Stores the flammable mass (lbm) in the working scenario.
  void storeFlammableMass(double mass) override;
  /// Writes the results into the row, in one change: numbers with two decimals, marks as they stand.
  void storeRun() override;
  /// Whether the last storeRun has done so.
  bool isStored() const { return stored_; }

 private:
  /// A step that could not be carried out since another program held the file.
  struct Owed {
    std::string cause;
    KeptInputs boundInputs;  // wind and humidity
    KeptInputs inputs;       // what a row brings into the view beside them
  };

  /// Brings back what was typed while the row was owed: it belongs to that row, not to the one before.
  void takeTyped(const KeptInputs& typedBound, const KeptInputs& typed);
  /// The regime of the step: a failing statement is skipped and told; one that meets a lock makes the step owed.
  Trap stepping();
  void findRow(bool again);
  void useRunQuery();
  std::string classOfNewRow() const;
  void insertRow();
  /// Nothing in the view changes unless the row is stored.
  void create(const Trap& skipping);
  void bringUpToDate(const Trap& skipping);
  void standOnRow(const Trap& skipping);
  void restoreLevels();
  void settleFocus();
  void tellOutcome(int found);

  Sees sees_;
  bool focusDone_ = false;
  bool stored_ = false;
  bool running_ = false;
  std::optional<Owed> owed_;
};

}  // namespace noldarz
