// What a press of Compute asks of the rooms above the engine. They implement it, system/ wires it. Where a part is missing
// a press leaves its steps out.
#pragma once

namespace noldarz {

/// The toxic effects of a run.
class ToxicEffects {
 public:
  ToxicEffects() = default;
  ToxicEffects(const ToxicEffects&) = delete;
  ToxicEffects& operator=(const ToxicEffects&) = delete;
  virtual ~ToxicEffects() = default;

  /// At the start of a press: the constants of the software when `prbtoptn` is 1 (its click), else those of the row.
  virtual void takeProbitConstants() = 0;
  /// Finds and shows the fatality and injury limits of the run; clears the report table first.
  virtual void searchLimits() = 0;
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

/// Both; either may be null.
struct Effects {
  ToxicEffects* toxic = nullptr;
  RunStore* rows = nullptr;
};

}  // namespace noldarz
