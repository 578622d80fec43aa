// The rooms of the mapping, built and wired: what the zone view does, its link to the organisation in the study, the
// zones in a CAD drawing and at a glance.
#pragma once

#include "mapping/cad_mapping.h"
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
    CadState& cadState;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const ZoneView& zone;
    PlotView& plotView;
    PlumeModel& plume;
    StudyRooms& study;
    const Folders& folders;
    const Settings& settings;
    Cad& cad;
    Desktop& desktop;
  };
  explicit MappingRooms(const Sees& sees);

  StatusLine status;
  DataLink dt_1;  // organisation
  ZoneCommands commands;
  CadMapping cadMapping;
  Thumbnail thumbnail;
};

}  // namespace noldarz
