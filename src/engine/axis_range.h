// What the cloud does over a whole stretch of its axis, bounded from the curves at its two ends. By it the searches
// pass over steps at which nothing can happen, and find to the last digit what they would find step by step. Pure
// functions of numbers.
#pragma once

#include <optional>

#include "engine/coefficients.h"
#include "engine/gaussian.h"

namespace noldarz {

/// Bounds over a stretch of the axis: every value at a distance in it lies between them.
struct AxisRange {
  CoefficientRange sigmaY;
  CoefficientRange sigmaZ;
  double low = 0;            ///< concentration on the axis (ppm)
  double high = 0;           ///< the same
  double leastExponent = 0;  ///< d ln(C) / d ln(x)
  double mostExponent = 0;   ///< the same

  /// Share by which a bound must clear what it is compared with. It is far above the rounding of the formulas, some
  /// 1e-13.
  static constexpr double margin = 1e-9;
  bool liesBelow(double conc) const { return high * (1 + margin) < conc; }
  bool liesAbove(double conc) const { return low * (1 - margin) > conc; }

  /// Whether each step outward finds a higher concentration than the one before.
  bool rises() const { return leastExponent > leastSlope; }
  /// Whether each step outward finds a greater half width of the level than the one before:
  ///   d ln(w) / d ln(x) = d ln(sy) / d ln(x) + (d ln(C) / d ln(x)) / (2 ln(C / level))
  bool widens(double level) const;

  /// Exponent from which on a step of 0.01 m at 1000 km still shows in a double.
  static constexpr double leastSlope = 1e-5;
};

/// The bounds from `from` to `to` (m), at temperature T (K):
///
///   d ln(C) / d ln(x) = ez * (r - 1) - p * ey      p = 1, for "PUFF" 2; ey, ez: exponents of sy and sz
///                     + (0.00001 / sy)^2 * ey    of the point looked at, that far off the axis; never below 0
///   r = d ln(R) / d ln(sz), between ((H - z) / sz)^2 and ((H + z) / sz)^2
///
/// None for a stretch on which a coefficient changes its form or does not grow, and for a release without mass or wind.
std::optional<AxisRange> axisRange(const Source& source, int stabilityClass, double density, double T, double from,
                                   double to);

}  // namespace noldarz
