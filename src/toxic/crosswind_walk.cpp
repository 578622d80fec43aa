#include "toxic/crosswind_walk.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/failure.h"

namespace noldarz {

namespace {

constexpr double walkingSpeed = 90;    // m/min
constexpr double logFactor = 0.43429;  // before the natural logarithm
constexpr double molarVolume = 24.75;  // l/mol
constexpr double doseFactor = 0.001;   // of the time in the dose, as the model has it
constexpr double doseDivisor = 60;     // the same
constexpr double mostPercent = 100;
constexpr double leastPercent = 0.9;  // less counts as none

double timeAt(double path) { return rounded(path / walkingSpeed, 4); }

double doseIn(const Walk& walk, double time) {
  return checked((walk.M * walk.C / molarVolume) * (time * doseFactor) / doseDivisor);
}

/// C^B of both probits.
struct Powers {
  explicit Powers(const Walk& walk)
      : fatality(std::pow(walk.C, walk.fatality.B)), injury(std::pow(walk.C, walk.injury.B)) {}
  double fatality;
  double injury;
};

double probitAt(double A, double power, double time) {
  return std::max(A + logFactor * naturalLog(checked(power * time)), 0.0);
}

double percentOf(double sum) {
  if (sum < leastPercent) return 0;
  return std::min(sum, mostPercent);
}

void takeStep(const Walk& walk, const Powers& power, double time, LimitSearchState& state) {
  const bool exposed = walk.C > 0 && time > 0;
  state.exposureMin = time;
  state.doseStep = doseIn(walk, time);
  state.probitFtl = exposed ? probitAt(walk.fatality.A, power.fatality, time) : 0;
  state.probitInj = exposed ? probitAt(walk.injury.A, power.injury, time) : 0;
}

}  // namespace

void clearWalk(LimitSearchState& state) {
  state.doseStep = state.doseSum = state.probitFtl = state.probitInj = state.pctFtl = state.pctInj = 0;
}

void walkStepByStep(const Walk& walk, LimitSearchState& state) {
  clearWalk(state);
  const Powers power{walk};
  for (state.crossPath = 0; state.crossPath <= walk.halfEdge; state.crossPath += 1) {
    state.doseSum += state.doseStep;
    state.pctFtl += state.probitFtl;
    state.pctInj += state.probitInj;
    if (state.crossPath == 0) state.crossPath = walkStart;
    if (state.crossPath == 1 + walkStart) state.crossPath = 1;
    takeStep(walk, power, timeAt(state.crossPath), state);
  }
  state.pctFtl = percentOf(state.pctFtl);
  state.pctInj = percentOf(state.pctInj);
}

void CrosswindWalk::growTo(std::size_t steps) {
  for (std::size_t path = logTime_.size(); path <= steps; ++path) {
    const double time = timeAt(static_cast<double>(path));
    logTime_.push_back(std::log(time));
    sumTime_.push_back(sumTime_.back() + time);
    sumLog_.push_back(sumLog_.back() + logTime_.back());
  }
}

bool CrosswindWalk::sumOf(double A, double power, std::size_t last, double& sum) const {
  // Beyond these the step's own logarithm loses digits, or has no value.
  if (!(power > 1e-290 && power < 1e290)) return false;
  const double base = A + logFactor * std::log(power);
  // The time grows along the path, so the positive probits are those from one step on.
  const auto first = std::partition_point(logTime_.begin() + 1,
                                          logTime_.begin() + static_cast<std::ptrdiff_t>(last),
                                          [&](double logTime) { return base + logFactor * logTime <= 0; });
  const auto before = static_cast<std::size_t>(first - logTime_.begin()) - 1;
  const auto count = static_cast<double>(last - 1 - before);
  sum = count * base + logFactor * (sumLog_[last - 1] - sumLog_[before]);
  const double terms =
      count * (std::fabs(A) + std::fabs(base - A)) + std::fabs(sumLog_[last - 1]) + std::fabs(sumLog_[before]);
  const double lastBits =
      2 * std::numeric_limits<double>::epsilon() * static_cast<double>(last) * (terms + mostPercent);
  return std::fabs(sum - leastPercent) > lastBits;
}

void CrosswindWalk::walk(const Walk& walk, LimitSearchState& state) {
  const bool simple = takesTime(walk.halfEdge) && walk.C > 0;
  if (!simple) return walkStepByStep(walk, state);
  const auto last = static_cast<std::size_t>(walk.halfEdge);
  growTo(last);
  double ftl = 0;
  double inj = 0;
  const Powers power{walk};
  if (!sumOf(walk.fatality.A, power.fatality, last, ftl) || !sumOf(walk.injury.A, power.injury, last, inj))
    return walkStepByStep(walk, state);
  clearWalk(state);
  state.crossPath = static_cast<double>(last) + 1;
  takeStep(walk, power, timeAt(static_cast<double>(last)), state);
  state.doseSum = doseIn(walk, sumTime_[last - 1]);
  state.pctFtl = percentOf(ftl);
  state.pctInj = percentOf(inj);
}

}  // namespace noldarz
