// The rooms of the mapping, built and wired: what the zone view does, its link to the organisation in the study, and
// the zones at a glance.
#pragma once

#include "mapping/thumbnail.h"
#include "mapping/zone_commands.h"
#include "mapping/zone_view.h"
#include "scenario/main_view.h"
#include "study/rooms.h"
#include "toxic/state.h"

namespace noldarz {

struct MappingRooms {
  struct Sees {
    MainView& main;
    PlotRunState& plot;
    EngineState& engineState;
    StudyState& studyState;
    ScenarioState& scenario;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const ZoneView& zone;
    PlotView& plotView;
    StudyRooms& study;
    const Settings& settings;
    Desktop& desktop;
  };
  explicit MappingRooms(const Sees& sees);

  StatusLine status;
  DataLink dt_1;  // organisation
  ZoneCommands commands;
  Thumbnail thumbnail;
};

}  // namespace noldarz
