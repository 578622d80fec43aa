// The rooms of the engine, built and wired: the model, its searches, the two presses of Compute.
#pragma once

#include "engine/close_out.h"
#include "engine/compute.h"
#include "engine/isopleth.h"
#include "engine/level_passes.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/sweep.h"
#include "engine/wind_share.h"

namespace noldarz {

struct EngineRooms {
  struct Sees {
    Views& views;
    View& mainView;
    EngineState& state;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const CommandFields& command;
    const PressPorts& ports;
    Desktop& desktop;
  };
  explicit EngineRooms(const Sees& sees);

  PlumeModel plume;
  Progress progress;
  Sweep search;
  Isopleth isopleth;
  LevelPasses levelPasses;
  CloseOut closeOut;
  Compute compute;
  WindShare windShare;
};

}  // namespace noldarz
