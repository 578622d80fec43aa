// Dispersion coefficients of the Gaussian model as closed formulas of the downwind distance, one table a coefficient:
// power-law and logarithmic fits of the Pasquill-Gifford curves. Pure functions of numbers; docs/model.md tells the
// literature and the range of validity.
#pragma once

#include <optional>

namespace noldarz {

// A class is an index in `stabilityClasses` (air.h), 0 to 11. All distances and results in metres. Where a logarithm or
// power has no value (a distance of 0 in class "DE", a negative distance) the result is no number: callers check it.

/// Vertical coefficient from the class table.
double sigmaZFromClass(int stabilityClass, double distance);

/// Vertical coefficient of a gas lighter than air (relative vapour density below 1).
double sigmaZLighterThanAir(int stabilityClass, double distance);

/// Factor by which a gas heavier than air lowers its vertical coefficient near the source; 1 beyond the limit of its
/// density band, where both bands join the class table without a jump, and for a density of exactly 1.
double heavyGasFactor(double vapourDensity, double distance);

/// Lateral coefficient.
double sigmaYFromClass(int stabilityClass, double distance);

/// A coefficient over a stretch of the axis on which it grows by one form.
struct CoefficientRange {
  double low = 0;            ///< at the begin of the stretch (m)
  double high = 0;           ///< at its end (m)
  double leastExponent = 0;  ///< d ln(sigma) / d ln(x), above 0
  double mostExponent = 0;   ///< the same
};

/// The lateral coefficient from `from` to `to` (m); none where it does not grow, or for no class.
std::optional<CoefficientRange> sigmaYRange(int stabilityClass, double from, double to);

/// The vertical coefficient of a vapour density. None, too, for a stretch over a breakpoint or the reach of a density
/// band.
std::optional<CoefficientRange> sigmaZRange(int stabilityClass, double vapourDensity, double from, double to);

}  // namespace noldarz
