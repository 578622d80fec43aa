// The rooms of the toxic effects, built and wired: probit constants, limit search, distance limits, and what a press
// asks of them.
#pragma once

#include "toxic/distance_limits.h"
#include "toxic/limit_search.h"
#include "toxic/probit_constants.h"
#include "toxic/probit_effects.h"

namespace noldarz {

struct ToxicRooms {
  struct Sees {
    Views& views;
    View& mainView;
    ModelState& model;
    const LevelState& passes;
    LimitState& limits;
    ToxicState& state;
    const ScenarioInputs& in;
    const LevelFields& level;
    const CommandFields& command;
    const ToxicFields& toxic;
    const ProjectFields& project;
    MainLinks& links;
    PlumeModel& plume;
    Progress& progress;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& status;
  };
  explicit ToxicRooms(const Sees& sees);

  ProbitConstants probit;
  LimitSearch limitSearch;
  DistanceLimits limits;
  ProbitEffects effects;
};

}  // namespace noldarz
