// The tail of every press of Compute: derived results, the check of the levels against what the passes found, the
// steps of the rooms above, and the opening of the outputs. Called by Compute.
#pragma once

#include <string_view>

#include "engine/effects.h"
#include "engine/fields.h"
#include "engine/isopleth.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/failure.h"
#include "platform/view.h"

namespace noldarz {

/// A time in the unit in which it is shown: seconds up to 60 s, minutes up to 3600 s, hours beyond.
struct ScaledTime {
  double value;
  std::string_view unit;
};
ScaledTime scaledTime(double seconds);

class CloseOut {
 public:
  struct Sees {
    View& mainView;
    const ModelState& model;
    const SweepState& sweep;
    const LevelState& passes;
    WindShareState& shares;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const CommandFields& command;
    Isopleth& isopleth;
    Progress& progress;
    Desktop& desktop;
    const PressPorts& ports;
  };
  explicit CloseOut(const Sees& sees) : sees_(sees) {}

  /// Runs under the trap of the press; from the time of stabilization on, in a press that went through the level
  /// passes, failures are ignored.
  void closeRun(const Trap& press);

 private:
  void showStabilizationTime();
  /// Shows "Mass = 0" for a mass that is no positive number, and has the mass stored.
  void takeFlammableMass(const Trap& regime);
  /// A level is open when its begin or end point holds a mark. Each level in turn would disable or enable the outputs,
  /// so the last one decides.
  void judgeLastLevel();
  /// A negative length: the level must be entered lower. The first one is reported, and its field opened.
  void reportNegativeLength();
  void storeResults(const Trap& regime);
  void openOutputs(const Trap& regime);

  Sees sees_;
};

}  // namespace noldarz
