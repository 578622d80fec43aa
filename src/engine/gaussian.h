// The Gaussian cloud: concentration on the axis, maximum ground concentration, half width of a level. Pure functions of
// numbers; docs/model.md tells the literature. Distances in metres, concentrations in ppm, temperatures in K.
#pragma once

#include <cstdint>

#include "engine/constants.h"

namespace noldarz {

/// "PLUME", "POOL" and "PUFF"; "POOL" differs from "PLUME" nowhere in the engine. `none`: any other text.
enum class Release : std::int8_t { none = -1, plume, pool, puff };

/// A release in the wind.
struct Source {
  Release release = Release::plume;
  double Q = 0;  ///< rate of release (kg/s); quantity released (kg) of a puff
  double M = 0;  ///< molecular weight (g/mol)
  double H = 0;  ///< height of release (m)
  double z = 0;  ///< height of simulation (m)
  double u = 0;  ///< wind at the height of release (m/s); takes no part in a puff
};

/// Concentration on the axis (ppm) where the lateral and vertical coefficients are sy and sz, at temperature T.
///
///   C = K * R * Y * (Q * 1000) / (6.28318 * sy * sz * u)                     "PLUME", "POOL"
///   C = K * R * Y * (Q * 1000) / (6.28318^1.5 * sy^2 * sz)                   "PUFF"
///   R = exp(-0.5 * ((z + H) / sz)^2) + exp(-0.5 * ((H - z) / sz)^2)          reflection at the ground
///   Y = exp(-0.5 * (0.00001 / sy)^2)                                         0.00001 m off the axis
///   K = (T / M) * 0.08205 * 1000                                             g/m3 to ppm
///
/// Fails with divisionByZero for a coefficient, wind or molecular weight of 0, with overflow beyond a double.
double axisConcentration(const Source& source, double sy, double sz, double T);

/// Candidate of the maximum ground concentration (ppm) where the lateral coefficient is sy, with the sigma-z of the
/// maximum S = H / 1.4142, at the temperature T of the release.
///
///   C = ((Q + Q) * 1000) / (H^2 * (u * 8.55118538)) * (S / sy) * 0.08205 * (T / M) * 1000
///   C = (Q * 1000) / (6.28318^1.5 * sy^2 * S) * exp(-0.5 * (H / S)^2) * 0.08205 * (T / M) * 1000       "PUFF"
///
/// Fails as axisConcentration does.
double groundMaximum(const Source& source, double sy, double S, double T);

/// Distance from the axis (m) at which the concentration `conc` of the axis has fallen to `level`, with the coefficient
/// of that direction: sqrt(2 * ln(conc / level)) * sigma. Fails with invalidArgument for a conc below the level, with
/// divisionByZero for a level of 0.
double halfWidth(double conc, double level, double sigma);

}  // namespace noldarz
