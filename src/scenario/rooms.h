// The rooms of the scenario handling, built and wired: the run rows and their list, the rules of the fields, the start
// and the end of the main view, and its commands.
#pragma once

#include "engine/rooms.h"
#include "scenario/input_rules.h"
#include "scenario/level_captions.h"
#include "scenario/level_choice.h"
#include "scenario/main_commands.h"
#include "scenario/main_view.h"
#include "scenario/output_list.h"
#include "scenario/release_line.h"
#include "scenario/required_files.h"
#include "scenario/result_standing.h"
#include "scenario/run_list.h"
#include "scenario/run_reset.h"
#include "scenario/run_row.h"
#include "scenario/start_up.h"
#include "study/rooms.h"
#include "toxic/rooms.h"

namespace noldarz {

struct ScenarioRooms {
  struct Sees {
    Views& views;
    MainView& main;
    EngineState& engineState;
    RawLimitState& rawLimits;
    StudyState& studyState;
    ScenarioState& state;
    ContourState& contours;
    std::function<void()> windRoseTable;  // what a share of the wind calls when it is left
    StudyRooms& study;
    EngineRooms& engine;
    ToxicRooms& toxic;
    const Folders& folders;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& status;
  };
  explicit ScenarioRooms(const Sees& sees);

  RunList runList;
  RunRow runRow;
  RunReset runReset;
  InputRules inputRules;
  OutputList outputList;
  ReleaseLine releaseLine;
  ResultStanding standing;
  LevelCaptions levelCaptions;
  LevelChoice levelChoice;
  RequiredFiles requiredFiles;
  StartUp startUp;
  MainCommands commands;
};

}  // namespace noldarz
