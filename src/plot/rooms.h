// The rooms of the plots, built and wired: the drawings, the dialog of the scale, and what the plot view does.
#pragma once

#include "plot/fit_commands.h"
#include "plot/pointer.h"
#include "plot/view_commands.h"
#include "plot/view_life.h"

namespace noldarz {

struct PlotRooms {
  struct Sees {
    View& mainView;
    PlotRunState& state;
    EngineState& engineState;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    ContourState& contours;
    const ScenarioInputs& in;
    const LevelFields& level;
    const CommandFields& command;
    const ProjectFields& project;
    const ZoneFields& zone;
    PlotView& view;
    PlumeModel& plume;
    WindShare& windShare;
    ProfileProgress& progress;
    Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
  };
  explicit PlotRooms(const Sees& sees);

  IsoplethPlot isopleths;
  WindRose rose;
  ScaleDialog scale;
  FitCommands fit;
  PlotPointer pointer;
  PlotViewCommands commands;
  PlotViewLife life;
};

}  // namespace noldarz
