// The distance search: steps along the plume axis, evaluates the model at each step and looks for the peak of the
// centre-line concentration, the begin and end points of levels and the maximum ground concentration. Compute and
// the level passes set its bounds and switches.
//
// Where a step goes on after a statement that fails:
//
//   statement                                   box                                  goes on with
//   coefficients, wind, progress                "... as an administrator."           the next routine of the step
//   peak (findPeak)                             the same                             the begin-point test
//   level or concentration of a begin point     "2. ... Anti-virus trust. Msg. No."  the comparison, with old values
//   the rest of a begin point                   "... as an administrator."           the end-point test
//   end point (testEndPoint)                    the same                             the ground maximum
//   its length, its end of the sweep            none                                 the next of these three
//   ground maximum, with its candidate          "... as an administrator."           the next step
//
// A step with a failure is followed by a plain one: nothing is passed over after it.
#pragma once

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/failure.h"

namespace noldarz {

class Sweep {
 public:
  struct Sees {
    SweepState& sweep;
    ModelState& model;
    PlumeModel& plume;
    const LevelFields& level;
    const ResultFields& result;
    Progress& progress;
    Desktop& desktop;
  };
  explicit Sweep(const Sees& sees);

  /// Steps from sweepFrom to sweepTo by sweepStep; distSweep is a running sum. A search ends the sweep by setting
  /// distSweep to sweepTo. A failing routine of a step shows a box, and the sweep goes on after it.
  ///
  /// A begin point that is found runs the sweep again from inside the step, for the next level, up to six deep; what
  /// the inner sweep leaves in distSweep ends the outer ones, and each of them makes its closing test.
  ///
  /// Searches and their switches: the peak while maxConcDone is 0, begin points while bgnIdx is below 6, end points
  /// while endIdx is below 6, the maximum ground concentration while mgcDone is 0.
  void runSweep();

 private:
  void takeStep();
  /// Whether no search finds its target from the step at `from`, where it was not found, to the one at `to`.
  bool isQuiet(double from, double to);
  bool holdsNoPeak(const AxisRange& range);
  bool holdsNoGroundMaximum(const AxisRange& range) const;
  bool holdsNoBeginPoint(const AxisRange& range) const;
  bool holdsNoEndPoint(const AxisRange& range) const;
  void findPeak();
  void testBeginPoint();
  void testEndPoint();
  /// Takes the candidate at the first step at which sigmaZ has reached sigmaZAtMax.
  void takeGroundMaximum();
  /// The closing test of every sweep, nested ones too: one that came to 10000 m, or that left the maximum ground
  /// concentration unknown, says so in a box. A known one has its shown distance replaced by the end of this sweep.
  void reportFarSweep();
  /// maxIsopConc and maxConcDist in their fields; the shown concentration stands 5 percent below.
  void showPeak();
  void endSweep() { sees_.sweep.distSweep = sees_.sweep.sweepTo; }

  Sees sees_;
  bool failed_ = false;  // a routine of the step
  Trap trap_;            // of the routines of a step
  Trap beginPointTrap_;  // of the statements of testBeginPoint
};

}  // namespace noldarz
