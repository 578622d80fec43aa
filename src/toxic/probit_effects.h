// The toxic effects as a press of Compute asks for them.
#pragma once

#include "engine/effects.h"
#include "toxic/distance_limits.h"
#include "toxic/probit_constants.h"

namespace noldarz {

class ProbitEffects : public ToxicEffects {
 public:
  ProbitEffects(const ScenarioInputs& in, ProbitConstants& constants, DistanceLimits& limits)
      : in_(in), constants_(constants), limits_(limits) {}

  void takeProbitConstants(const Trap& press) override {
    if (in_.prbtoptn.value() == 1)
      press.step([&] { constants_.prbtoptn_Click(); });
    else
      constants_.takeFromRow(press);
  }
  void prepareSearch(const Trap& regime) override { limits_.prepareSearch(regime); }
  void searchLimits(const Trap& regime) override { limits_.searchLimits(regime); }

 private:
  const ScenarioInputs& in_;
  ProbitConstants& constants_;
  DistanceLimits& limits_;
};

}  // namespace noldarz
