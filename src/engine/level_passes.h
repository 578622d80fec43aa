// The second press of Compute: validates the levels and turns them into isopleths in four passes along the plume
// axis, then asks about a level that reaches past the maximum distance. Called by Compute.
#pragma once

#include <cstdint>
#include <functional>

#include "engine/fields.h"
#include "engine/isopleth.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "engine/sweep.h"
#include "platform/desktop.h"
#include "platform/failure.h"

namespace noldarz {

class LevelPasses {
 public:
  struct Sees {
    ModelState& model;
    SweepState& sweep;
    LevelState& passes;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const CommandFields& command;
    Sweep& search;
    Isopleth& isopleth;
    Progress& progress;
    Desktop& desktop;
    std::function<void()> press;  // a press inside the press, after a Yes
  };
  explicit LevelPasses(const Sees& sees) : sees_(sees) {}

  enum class Outcome : std::uint8_t { closeOut, refused };

  /// Runs under the trap of the press. `refused`: a level was refused, and the press ends without the close-out.
  Outcome runLevelPasses(const Trap& press);

 private:
  void disableInputs() const;
  /// First i whose levels i and i + 1 are refused; -1 when all pass.
  int firstBadLevel(const Trap& press) const;
  /// The mark and the focus go to the level after the bad one; what is at fault is told at its own field.
  void refuse(int bad, const Trap& press) const;
  void findBeginPoints(const Trap& press);
  void findEndPoints(const Trap& press);
  void refineEndPoints(const Trap& press);
  void findWidths(const Trap& press);
  void workOutResults(const Trap& press);
  bool wantsFurther(int level);
  void extendDistance(int level, const Trap& press);
  void openLevel(int level, const Trap& press) const;
  /// The begin point was found, and the end point is not "0".
  bool hasPoints(int level) const;

  Sees sees_;
};

}  // namespace noldarz
