// What a press of Compute asks of the rooms above the engine. They implement it, system/ joins them.
#pragma once

#include "platform/failure.h"

namespace noldarz {

/// The toxic effects of a run.
class ToxicEffects {
 public:
  ToxicEffects() = default;
  ToxicEffects(const ToxicEffects&) = delete;
  ToxicEffects& operator=(const ToxicEffects&) = delete;
  virtual ~ToxicEffects() = default;

  /// At the start of a press: the constants of the software when `prbtoptn` is 1 (its click), else those of the row.
  virtual void takeProbitConstants(const Trap& press) = 0;
  /// Clears the report table, and takes the end of the outermost level as the end of the limit search.
  virtual void prepareSearch(const Trap& regime) = 0;
  /// Finds and shows the fatality and injury limits of the run.
  virtual void searchLimits(const Trap& regime) = 0;
};

/// The rows of the study that a run writes.
class RunStore {
 public:
  RunStore() = default;
  RunStore(const RunStore&) = delete;
  RunStore& operator=(const RunStore&) = delete;
  virtual ~RunStore() = default;

  /// Stores the flammable mass (lbm) with the working scenario.
  virtual void storeFlammableMass(double mass) = 0;
  /// Writes the results of the run into its row.
  virtual void storeRun() = 0;
};

/// Both, filled once the rooms above stand.
struct PressPorts {
  ToxicEffects* toxic = nullptr;
  RunStore* rows = nullptr;
};

}  // namespace noldarz
