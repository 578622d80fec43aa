// The commands of the main view: Compute, Redo, a click in the list of runs, the levels of the chemical. What each asks
// of the rooms stands here in its order.
#pragma once

#include <string>

#include "engine/compute.h"
#include "scenario/level_choice.h"
#include "scenario/result_standing.h"
#include "scenario/run_list.h"
#include "scenario/run_reset.h"
#include "scenario/run_row.h"

namespace noldarz {

class MainCommands {
 public:
  struct Sees {
    View& view;
    const ScenarioInputs& in;
    const CommandFields& command;
    const ScenarioFields& scenario;
    Compute& compute;
    RunRow& runRow;
    RunList& runList;
    RunReset& runReset;
    LevelChoice& levelChoice;
    ResultStanding& standing;
    StatusLine& status;
  };
  /// Subscribes the commands.
  explicit MainCommands(const Sees& sees);

 private:
  void press();
  void showRunDetails();
  /// Clears the results and tells what comes next.
  void clear(const std::string& next);

  Sees sees_;
};

}  // namespace noldarz
