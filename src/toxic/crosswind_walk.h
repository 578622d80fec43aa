// The walk of a person out of the cloud, crosswind from the axis to the edge of level 4: dose, fatality and injury that
// the walk sums up. Functions of numbers; docs/model.md tells where they come from. Called by the limit search.
#pragma once

#include <vector>

#include "toxic/state.h"

namespace noldarz {

/// A probit expression: constant A and exponent B.
struct Probit {
  double A = 0;
  double B = 0;
};

struct Walk {
  double C = 0;         ///< concentration, taken to be that of the axis all the way (ppm, four decimals)
  double M = 0;         ///< molecular weight (g/mol)
  double halfEdge = 0;  ///< half the greatest width of level 4 (m)
  Probit fatality;
  Probit injury;
};

/// A distance at which the walk begins that is taken for none (m).
inline constexpr double walkStart = 0.00001;

/// Whether a walk so far leaves the first metre, so that it takes time.
inline bool takesTime(double halfEdge) { return halfEdge >= 1 + walkStart; }

/// Sets dose, probits and percent figures to 0, as a walk begins.
void clearWalk(LimitSearchState& state);

/// Walks step by step: along the path y of 0.00001, 1, 2, 3 ... m while it is at most halfEdge
///
///   t      = y / 90, in four decimals                            time at 90 m/min (min)
///   dose   = (M * C / 24.75) * (t * 0.001) / 60                  (mg)
///   probit = A + 0.43429 * ln(C^B * t), 0 where it is negative   for fatality and for injury; 0 while C or t is 0
///
/// (0.43429 is 1 / ln 10, which makes the logarithm a decimal one), and sums all steps but the last into doseSum,
/// pctFtl and pctInj. A sum above 100 becomes 100, one below 0.9 becomes 0: these clamped sums are the percent figures.
/// Leaves the path after the last step in crossPath, and its values in exposureMin, doseStep, probitFtl and probitInj.
///
/// Fails with overflow for a C^B * t or a dose beyond the range of a double, with invalidArgument for a C^B * t of 0.
void walkStepByStep(const Walk& walk, LimitSearchState& state);

/// The same walk for many concentrations: the times of the steps don't depend on it, so that their sums are worked out
/// once. doseSum and the percent figures differ from those of the steps in their last bits only; where that could turn
/// a figure into 0 or back, the walk goes step by step.
class CrosswindWalk {
 public:
  /// What walkStepByStep does. The first walk of a length takes a time that grows with it, and its tables are kept;
  /// then it is the logarithm of the length.
  void walk(const Walk& walk, LimitSearchState& state);

 private:
  void growTo(std::size_t steps);
  /// Sum of the probits A + 0.43429 * ln(power * t) of the steps before `last`; false when rounding
  /// could decide whether it reaches the least percent, or the power lies outside the safe range.
  bool sumOf(double A, double power, std::size_t last, double& sum) const;

  // By the path of a step in whole metres; 0 stands for the first step.
  std::vector<double> logTime_{0};  // ln t
  std::vector<double> sumTime_{0};  // sum of t up to here
  std::vector<double> sumLog_{0};   // sum of ln t up to here
};

}  // namespace noldarz
