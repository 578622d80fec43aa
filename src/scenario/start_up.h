// The life of the main view: start-up on the study of the start folder, its coming to the front, its end. It opens the
// links, shows the active project and the working scenario, and asks for the first run row step.
#pragma once

#include <array>
#include <string_view>

#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/settings.h"
#include "platform/status_line.h"
#include "scenario/links.h"
#include "scenario/main_view.h"
#include "scenario/queries.h"
#include "scenario/required_files.h"
#include "scenario/state.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class StartUp {
 public:
  /// Subscribes the rules of the view's life.
  StartUp(Views& views, MainView& main, ScenarioState& state, MainLinks& links, Queries& queries,
          ProbitConstants& probit, RequiredFiles& requiredFiles, const Folders& folders, const Settings& settings,
          Desktop& desktop, StatusLine& status);

  /// Opens the study `data/orgtn.mdb` beside the current folder. A failure up to the record source of the heights ends in
  /// the view of the missing files; from there on a failing step is skipped.
  void start();

 private:
  bool openStudy();
  void openHeights(const Trap& skipping);
  void takeScenario(const Trap& skipping);
  void takeStabilityClass();
  void takeLimitChoice();
  void settleFocus();
  void comeToFront();
  void paint();
  void closeAll();
  /// An edit that can't be stored is told, and tried again as long as the user wishes.
  void closeLink(DataLink& link);
  void end();

  Views& views_;
  MainView& main_;
  ScenarioState& state_;
  MainLinks& links_;
  Queries& queries_;
  ProbitConstants& probit_;
  RequiredFiles& requiredFiles_;
  const Folders& folders_;
  const Settings& settings_;
  Desktop& desktop_;
  StatusLine& status_;
};

/// Entries of the list of outputs, in this order.
inline constexpr std::array<std::string_view, 4> outputEntries{"Concentration Levels and distances",
                                                               "Conc Lvls and dist for mixtures",
                                                               "Concentration profile",
                                                               "Plot Hazard Zones"};

}  // namespace noldarz
