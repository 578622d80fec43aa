#include "engine/gaussian.h"

#include <cmath>

#include "engine/constants.h"
#include "platform/failure.h"

namespace noldarz {

namespace {

const double twoPiToThreeHalves = std::pow(twoPi, 1.5);

/// exp(-t) for t from 0 up; below 1e-8 the two terms of its series are exact in a double.
double decay(double t) { return t < 1e-8 ? 1 - t : std::exp(-t); }

}  // namespace

double axisConcentration(const Source& source, double sy, double sz, double T) {
  const auto [release, Q, M, H, z, u] = source;
  const double R = decay(0.5 * square((z + H) / divisor(sz))) + decay(0.5 * square((H - z) / sz));
  const double Y = decay(0.5 * square(offAxis / divisor(sy)));
  const double K = (T / divisor(M)) * gasConstant * ppmOfLitres;
  const double spread = release == Release::puff ? twoPiToThreeHalves * square(sy) * sz : twoPi * sy * sz * u;
  return checked(K * R * Y * (Q * gramsPerKilogram) / divisor(spread));
}

double groundMaximum(const Source& source, double sy, double S, double T) {
  const auto [release, Q, M, H, z, u] = source;
  const double grams =
      release == Release::puff
          ? (Q * gramsPerKilogram) / divisor(twoPiToThreeHalves * square(sy) * S) * decay(0.5 * square(H / S))
          : ((Q + Q) * gramsPerKilogram) / divisor(square(H) * (u * groundFactor)) * (S / divisor(sy));
  return checked(grams * gasConstant * (T / divisor(M)) * ppmOfLitres);
}

double halfWidth(double conc, double level, double sigma) {
  const double ratio = checked(conc / divisor(level));
  return checked(squareRoot(2 * naturalLog(ratio)) * sigma);
}

}  // namespace noldarz
