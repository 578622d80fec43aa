// RunState: the variables of all rooms, joined. Only this floor and the fronts see it whole.
#pragma once

#include "engine/state.h"
#include "scenario/state.h"
#include "toxic/state.h"

namespace noldarz {

struct RunState : ModelState,
                  PointQueryState,
                  SweepState,
                  LevelState,
                  LimitState,
                  WindShareState,
                  ProbitState,
                  RawLimitState,
                  StoredLimitState,
                  LimitSearchState,
                  ToxicState,
                  ScenarioState {};

/// Calls each(name, value) for every variable but the report table.
template <class Each>
void visitAll(const RunState& s, Each&& each) {
  visit(static_cast<const ModelState&>(s), each);
  visit(static_cast<const PointQueryState&>(s), each);
  visit(static_cast<const SweepState&>(s), each);
  visit(static_cast<const LevelState&>(s), each);
  visit(static_cast<const LimitState&>(s), each);
  visit(static_cast<const WindShareState&>(s), each);
  visit(static_cast<const ProbitState&>(s), each);
  visit(static_cast<const RawLimitState&>(s), each);
  visit(static_cast<const StoredLimitState&>(s), each);
  visit(static_cast<const LimitSearchState&>(s), each);
  visit(static_cast<const ScenarioState&>(s), each);
}

}  // namespace noldarz
