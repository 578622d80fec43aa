// The list of stored runs of the reference number, and the way of one of them into the view.
#pragma once

#include <string>
#include <vector>

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "scenario/state.h"
#include "study/fields.h"
#include "study/links.h"
#include "study/queries.h"
#include "study/state.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class RunList {
 public:
  struct Sees {
    View& view;
    StudyState& study;
    ScenarioState& state;
    SweepState& sweep;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ProjectFields& project;
    const ScenarioFields& scenario;
    MainLinks& links;
    Queries& queries;
    ProbitConstants& probit;
    StatusLine& status;
  };
  /// Subscribes the double click.
  explicit RunList(const Sees& sees) : sees_(sees) {
    sees_.view.on(sees_.scenario.dspScnorlst_1, Event::dblClick, [this] { dspScnorlst_1_DblClick(); });
  }

  /// Fills the list from the run rows of the reference number, the last row on top. The link dt2a then stands on the
  /// first of them. A failed step is skipped.
  void fill(const Trap& skipping);

  /// Shows class and wind of each run, and where its levels end, as they are stored now.
  void showDetails();
  /// Shows which entry is the run that the link dt2a stands on.
  void showCurrent();

  /// A double click in the list: brings the inputs of the selected run into the view, with the link dt2a on its row.
  /// Without a selected entry, and for a row that is out of reach, nothing is loaded.
  void dspScnorlst_1_DblClick();

 private:
  /// What the list keeps of a run.
  struct Run {
    std::string scenariotxt;
    Cell scenariotxt_ac;
    Cell scnrotype;
    std::string scenariotxtUser;
    Cell QntyRels;
    Cell PoolRadiusRrsls;
  };

  void takeScenario(const Run& run) const;
  /// Whether the link stands on the row of the run.
  bool standOnRow(const Run& run, const Trap& skipping);
  void takeInputs(const Trap& skipping);

  Sees sees_;
  std::vector<Run> runs_;  // scnrStore, in the order of the rows
};

}  // namespace noldarz
