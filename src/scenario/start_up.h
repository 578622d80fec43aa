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
#include "scenario/main_view.h"
#include "scenario/required_files.h"
#include "scenario/state.h"
#include "study/links.h"
#include "study/outputs.h"
#include "study/queries.h"
#include "study/state.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class StartUp {
 public:
  struct Sees {
    Views& views;
    MainView& main;
    StudyState& study;
    ScenarioState& state;
    ContourState& contours;
    MainLinks& links;
    Queries& queries;
    const Outputs& outputs;
    ProbitConstants& probit;
    RequiredFiles& requiredFiles;
    const Folders& folders;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the view's life.
  explicit StartUp(const Sees& sees);

  /// Opens the study `data/orgtn.mdb` beside the current folder. A failure up to the record source of the heights ends
  /// in the view of the missing files; from there on a failing step is skipped.
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

  Sees sees_;
};

}  // namespace noldarz
