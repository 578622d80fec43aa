// The program without a front: all views and routines, built and wired, and nothing else. A front makes one System on its
// Desktop, starts it, and fires events.
#pragma once

#include "engine/close_out.h"
#include "engine/compute.h"
#include "engine/isopleth.h"
#include "engine/level_passes.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/sweep.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/settings.h"
#include "platform/view.h"
#include "scenario/input_rules.h"
#include "scenario/level_captions.h"
#include "scenario/level_choice.h"
#include "scenario/main_view.h"
#include "scenario/output_list.h"
#include "scenario/release_line.h"
#include "scenario/required_files.h"
#include "scenario/result_standing.h"
#include "scenario/run_list.h"
#include "scenario/run_reset.h"
#include "scenario/run_row.h"
#include "scenario/start_up.h"
#include "system/run_state.h"
#include "toxic/press_effects.h"

namespace noldarz {

class System {
 public:
  /// `effects`: what a press asks for in place of the program's own toxic effects and rows.
  System(Desktop& desktop, Folders folders, const Effects* effects = nullptr);
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  /// Starts on the study beside the current folder. Before it the fields hold their initial values and no study is open.
  void start() { startUp_.start(); }

  Views& views() { return views_; }
  const RunState& state() const { return state_; }
  MainView& mainView() { return main_; }
  RunRow& runRow() { return runRow_; }
  PlumeModel& plume() { return plume_; }
  LimitSearch& limitSearch() { return limitSearch_; }
  const Progress& progress() const { return progress_; }
  Settings& settings() { return settings_; }
  const StatusLine& status() const { return status_; }
  /// The study, null when none is open.
  std::shared_ptr<Database> study() const { return links_.dt1.database(); }

 private:
  void wire();
  void press();
  void showRunDetails();
  /// Clears the results and tells what comes next.
  void clear(const std::string& next);

  Folders folders_;
  Settings settings_;
  Databases databases_;
  Views views_;
  RunState state_;
  MainView main_;
  StatusLine status_;
  MainLinks links_;
  Queries queries_;
  PlumeModel plume_;
  Progress progress_;
  Sweep search_;
  Isopleth isopleth_;
  ProbitConstants probit_;
  LimitSearch limitSearch_;
  DistanceLimits limits_;
  PressEffects toxicEffects_;
  RunList runList_;
  RunRow runRow_;
  Effects effects_;
  RunReset runReset_;
  LevelPasses levelPasses_;
  CloseOut closeOut_;
  Compute compute_;
  WindShare windShare_;
  InputRules inputRules_;
  OutputList outputList_;
  ReleaseLine releaseLine_;
  ResultStanding standing_;
  LevelCaptions levelCaptions_;
  LevelChoice levelChoice_;
  RequiredFiles requiredFiles_;
  StartUp startUp_;
};

}  // namespace noldarz
