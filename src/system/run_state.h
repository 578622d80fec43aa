// RunState: the variables of all rooms, joined. Only this floor and the fronts see it whole.
#pragma once

#include "engine/state.h"
#include "mapping/state.h"
#include "platform/variables.h"
#include "plot/state.h"
#include "population/state.h"
#include "scenario/state.h"
#include "study/state.h"
#include "toxic/state.h"

namespace noldarz {

struct RunState : Joined<EngineState, ToxicState, StudyState, ContourState, ScenarioState, PopulationState,
                         PlotRunState, CadState> {};

}  // namespace noldarz
