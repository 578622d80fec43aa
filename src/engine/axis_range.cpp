#include "engine/axis_range.h"

#include <algorithm>
#include <cmath>

#include "engine/constants.h"
#include "platform/failure.h"

namespace noldarz {

namespace {

/// Concentration (ppm) down to which the exponentials keep their digits: below it one of them may underflow, and the
/// concentration goes up and down by its last digit.
constexpr double leastConc = 1e-280;

/// d ln(C) / d ln(x) from the exponents and the reflection at the ground.
void boundExponent(const Source& source, AxisRange& range) {
  const auto [nearer, farther] = std::minmax({square(source.H - source.z), square(source.H + source.z)});
  const double least = nearer / square(range.sigmaZ.high) - 1;
  const double most = farther / square(range.sigmaZ.low) - 1;
  const auto [ezLeast, ezMost] = std::pair{range.sigmaZ.leastExponent, range.sigmaZ.mostExponent};
  const double lateral = source.release == Release::puff ? 2 : 1;
  range.leastExponent = std::min(ezLeast * least, ezMost * least) - lateral * range.sigmaY.mostExponent;
  range.mostExponent = std::max(ezLeast * most, ezMost * most) - lateral * range.sigmaY.leastExponent +
                       square(offAxis / range.sigmaY.low) * range.sigmaY.mostExponent;
}

}  // namespace

bool AxisRange::widens(double level) const {
  constexpr double clear = 1e-4;  // nearer to the level the half width is mostly rounding
  if (!(low > level * (1 + clear) && level > 0)) return false;
  const double least = std::min(leastExponent / std::log(low / level), leastExponent / std::log(high / level));
  return sigmaY.leastExponent + least / 2 > leastSlope;
}

std::optional<AxisRange> axisRange(const Source& source, int stabilityClass, double density, double T, double from,
                                   double to) {
  const bool moves = source.release == Release::puff || source.u > 0;
  if (!(source.Q > 0 && source.M > 0 && T > 0 && moves && from > 0 && from <= to)) return {};
  const auto sigmaY = sigmaYRange(stabilityClass, from, to);
  const auto sigmaZ = sigmaZRange(stabilityClass, density, from, to);
  if (!sigmaY || !sigmaZ) return {};
  AxisRange range{.sigmaY = *sigmaY, .sigmaZ = *sigmaZ};
  boundExponent(source, range);
  double begin = 0;
  double end = 0;
  silently([&] { begin = axisConcentration(source, sigmaY->low, sigmaZ->low, T); },
           [&] { end = axisConcentration(source, sigmaY->high, sigmaZ->high, T); });
  if (!(begin > leastConc && end > leastConc)) return {};
  // From either end the concentration goes no steeper than the exponents.
  const double stretch = to / from;
  range.low = std::max(begin * std::pow(stretch, std::min(0.0, range.leastExponent)),
                       end * std::pow(stretch, std::min(0.0, -range.mostExponent)));
  range.high = std::min(begin * std::pow(stretch, std::max(0.0, range.mostExponent)),
                        end * std::pow(stretch, std::max(0.0, -range.leastExponent)));
  return range;
}

}  // namespace noldarz
