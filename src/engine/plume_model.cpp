#include "engine/plume_model.h"

#include <cmath>

#include "engine/coefficients.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double twoPi = 6.28318;  // these digits, not a more exact value
const double twoPiToThreeHalves = std::pow(twoPi, 1.5);
constexpr double offAxis = 0.00001;      // m, lateral distance of the point looked at
constexpr double gasConstant = 0.08205;  // l atm / (mol K)
constexpr double gramsPerKilogram = 1000;
constexpr double ppmOfLitres = 1000;         // 1e6 ppm / 1000 l/m3: g/m3 to ppm, with gasConstant * T / M
constexpr double groundFactor = 8.55118538;  // stands for pi * e = 8.53973 in the maximum ground concentration

double square(double value) { return value * value; }

/// The value that the trace holds for the distance, worked out first when it is not known yet or nothing is traced.
template <class Work>
double kept(AxisTrace* trace, double distance, double AxisTrace::Point::*value, Work&& work) {
  if (!trace) return work();
  double& known = trace->at(distance).*value;
  if (known < 0) known = work();
  return known;
}

/// exp(-t) for t from 0 up; below 1e-8 the two terms of its series are exact in a double.
double decay(double t) { return t < 1e-8 ? 1 - t : std::exp(-t); }

}  // namespace

PlumeModel::PlumeModel(ModelState& model,
                       const PointQueryState& query,
                       const ScenarioInputs& in,
                       const LevelFields& level,
                       const ResultFields& result)
    : model_(model), query_(query), inputs_(in), level_(level), result_(result) {}

void PlumeModel::setClassWind() {
  if (const auto wind = defaultWind(inputs_().stabilityClass)) model_.classWind = *wind;
}

void PlumeModel::calcWindAtHeight() {
  if (model_.mgcPass == 1) {
    if (!windKey_.holds(inputs_.revision(), model_)) {
      wind_ = windNow();
      windKey_ = {inputs_.revision(), model_.windInput, model_.htRelease};
    }
    model_.windAtHeight = wind_;
  }
  result_.wndvel.setPlainNumber(model_.windAtHeight);
}

double PlumeModel::windNow() {
  const ModelInputs& in = inputs_();
  const bool usersWind = in.stabilityClass == customClass && model_.htRelease > windReferenceHeight;
  return windAtReleaseHeight(
      usersWind ? in.wind.number() : model_.windInput, model_.htRelease, in.stabilityClass, in.terrain);
}

void PlumeModel::updateSigmaZBase(double distance, AxisTrace* trace, double& base) {
  const ModelInputs& in = inputs_();
  if (in.stabilityClass != noClass)
    base = kept(trace, distance, &AxisTrace::Point::sigmaZBase, [&] {
      return checked(sigmaZFromClass(in.stabilityClass, distance));
    });
  model_.windInput = in.wind.number();
}

void PlumeModel::updateSigmaZ(double distance, double base, double& sigma) {
  const ModelInputs& in = inputs_();
  const double density = in.density.number();
  if (density < 1) {
    if (in.stabilityClass != noClass) sigma = checked(sigmaZLighterThanAir(in.stabilityClass, distance));
  } else {
    sigma = checked(heavyGasFactor(density, distance) * base);
  }
}

void PlumeModel::updateSigmaY(double distance, AxisTrace* trace, double& sigma) {
  const int stabilityClass = inputs_().stabilityClass;
  if (stabilityClass != noClass)
    sigma = kept(
        trace, distance, &AxisTrace::Point::sigmaY, [&] { return checked(sigmaYFromClass(stabilityClass, distance)); });
}

void PlumeModel::calcSigmaZBase() { updateSigmaZBase(model_.distX, trace_, model_.sigmaZBase); }
void PlumeModel::calcSigmaZ() { updateSigmaZ(model_.distX, model_.sigmaZBase, model_.sigmaZ); }
void PlumeModel::calcSigmaY() { updateSigmaY(model_.distX, trace_, model_.sigmaY); }

void PlumeModel::calcSigmaZBaseAt() { updateSigmaZBase(model_.distAt, nullptr, model_.sigmaZBaseAt); }
void PlumeModel::calcSigmaZAt() { updateSigmaZ(model_.distAt, model_.sigmaZBaseAt, model_.sigmaZAt); }
void PlumeModel::calcSigmaYAt() { updateSigmaY(model_.distAt, nullptr, model_.sigmaYAt); }

double PlumeModel::ppmFactor(double T, double M) {
  if (ppmTemperature_ != T || ppmWeight_ != M) {
    ppmFactor_ = (T / divisor(M)) * gasConstant * ppmOfLitres;
    ppmTemperature_ = T;
    ppmWeight_ = M;
  }
  return ppmFactor_;
}

void PlumeModel::plumeConc(double sy, double sz, double T, double& conc) {
  const ModelInputs& in = inputs_();
  if (in.release == Release::none) return;
  const double Q = in.Q.number();
  const double M = in.M.number();
  const double H = model_.htRelease;
  const double z = model_.htSimul;
  const double R = decay(0.5 * square((z + H) / divisor(sz))) + decay(0.5 * square((H - z) / sz));
  const double Y = decay(0.5 * square(offAxis / divisor(sy)));
  const double K = ppmFactor(T, M);
  const double spread =
      in.release == Release::puff ? twoPiToThreeHalves * square(sy) * sz : twoPi * sy * sz * model_.windAtHeight;
  conc = checked(K * R * Y * (Q * gramsPerKilogram) / divisor(spread));
}

void PlumeModel::isoplethConc(double& conc) {
  if (inputs_().release == Release::none) return;
  conc = kept(trace_, model_.distX, &AxisTrace::Point::conc, [&] {
    double fresh = 0;
    plumeConc(model_.sigmaY, model_.sigmaZ, isoplethTemperature, fresh);
    return fresh;
  });
}

void PlumeModel::calcConcGround() {
  const ModelInputs& in = inputs_();
  if (in.release == Release::none) return;
  if (!groundKey_.holds(inputs_.revision(), model_)) {
    groundTerms_ = groundTerms();
    groundKey_ = {inputs_.revision(), model_.htRelease, model_.sigmaZAtMax, model_.windAtHeight};
  }
  const auto [fixed, temperatureByWeight] = groundTerms_;
  const double S = model_.sigmaZAtMax;
  const double sy = divisor(model_.sigmaY);
  const double grams = in.release == Release::puff
                           ? (in.Q.number() * gramsPerKilogram) / divisor(twoPiToThreeHalves * square(sy) * S) * fixed
                           : fixed * (S / sy);
  model_.concGround = checked(grams * gasConstant * temperatureByWeight * ppmOfLitres);
}

PlumeModel::GroundTerms PlumeModel::groundTerms() {
  const ModelInputs& in = inputs_();
  const double Q = in.Q.number();
  const double H = model_.htRelease;
  const double fixed = in.release == Release::puff
                           ? std::exp(-0.5 * square(H / divisor(model_.sigmaZAtMax)))
                           : ((Q + Q) * gramsPerKilogram) / divisor(square(H) * (model_.windAtHeight * groundFactor));
  return {fixed, releaseTemperature() / divisor(in.M.number())};
}

void PlumeModel::calcHalfWidthAt() {
  constexpr int concentrationOnly = 4;
  if (query_.drawMode != concentrationOnly) model_.levelConcAt = rounded(level_.constn[query_.plotLevel].number(), 2);
  calcSigmaYAt();
  calcSigmaZBaseAt();
  calcSigmaZAt();
  plumeConc(model_.sigmaYAt, model_.sigmaZAt, isoplethTemperature, model_.concAt);
  if (query_.drawMode == concentrationOnly) return;
  if (model_.levelConcAt < model_.concAt) {
    const double r = squareRoot(2 * naturalLog(model_.concAt / divisor(model_.levelConcAt)));
    model_.halfWidthAt = checked(r * (query_.isoElevate != 0 ? model_.sigmaZAt : model_.sigmaYAt));
  } else {
    model_.halfWidthAt = 0;
  }
  model_.halfWidthMax = model_.halfWidthAt;
  model_.halfWidthAtRounded = rounded(model_.halfWidthMax, 2);
}

}  // namespace noldarz
