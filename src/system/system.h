// The program without a front: the state, the ports and the rooms of all floors, joined, and nothing else. A front
// makes one System on its Desktop, starts it, and fires events.
#pragma once

#include "engine/rooms.h"
#include "mapping/rooms.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/settings.h"
#include "platform/view.h"
#include "plot/rooms.h"
#include "population/rooms.h"
#include "reports/results_report.h"
#include "scenario/rooms.h"
#include "study/rooms.h"
#include "system/run_state.h"
#include "toxic/rooms.h"

namespace noldarz {

class System {
 public:
  /// `ports`: what a press asks of in place of the program's own toxic effects and rows.
  System(Desktop& desktop, Cad& cad, Folders folders, const PressPorts* ports = nullptr);
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  /// Starts on the study beside the current folder. Before it the fields hold their initial values and no study is
  /// open.
  void start() { scenario_.startUp.start(); }

  Views& views() { return views_; }
  const RunState& state() const { return state_; }
  MainView& mainView() { return main_; }
  EngineRooms& engine() { return engine_; }
  ToxicRooms& toxic() { return toxic_; }
  ScenarioRooms& scenario() { return scenario_; }
  PlotView& plotView() { return plotView_; }
  const PopulationRooms& population() const { return population_; }
  Settings& settings() { return settings_; }
  const StatusLine& status() const { return status_; }
  /// The study, null when none is open.
  std::shared_ptr<Database> study() const { return study_.links.dt1.database(); }

 private:
  Folders folders_;
  Settings settings_;
  Views views_;
  RunState state_;
  MainView main_;
  ZoneView zoneView_;
  PlotView plotView_;
  GridView gridView_;
  ReportView reportView_;
  StatusLine status_;
  PressPorts ports_;
  StudyRooms study_;
  EngineRooms engine_;
  ToxicRooms toxic_;
  PopulationRooms population_;
  ResultsReport report_;
  PlotRooms plot_;
  ScenarioRooms scenario_;
  MappingRooms mapping_;
};

}  // namespace noldarz
