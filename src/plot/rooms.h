// The rooms of the plots, built and wired: the drawings, the dialog of the scale, and what the plot view does.
#pragma once

#include "plot/drawings.h"
#include "plot/location_query.h"
#include "plot/pointer.h"
#include "plot/view_commands.h"
#include "plot/view_life.h"

namespace noldarz {

struct PlotRooms {
  struct Sees {
    View& mainView;
    PlotRunState& state;
    EngineState& engineState;
    LimitSearchState& search;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    ContourState& contours;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const CommandFields& command;
    const ToxicFields& toxic;
    const ProjectFields& project;
    const ZoneFields& zone;
    PlotView& view;
    PlumeModel& plume;
    WindShare& windShare;
    LimitSearch& limitSearch;
    Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
  };
  explicit PlotRooms(const Sees& sees);

  PlotDrawings drawings;
  LocationQuery location;
  PlotPointer pointer;
  PlotViewCommands commands;
  PlotViewLife life;
};

}  // namespace noldarz
