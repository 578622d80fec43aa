#include "engine/plume_model.h"

#include "engine/coefficients.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

/// The value that the trace holds for the distance, worked out first when it is not known yet or nothing is traced.
template <class Work>
double kept(AxisTrace* trace, double distance, double AxisTrace::Point::*value, Work&& work) {
  if (!trace) return work();
  double& known = trace->at(distance).*value;
  if (known < 0) known = work();
  return known;
}

}  // namespace

PlumeModel::PlumeModel(ModelState& model, const PointQueryState& query, const ScenarioInputs& in,
                       const LevelFields& level, const ResultFields& result)
    : model_(model), query_(query), inputs_(in), level_(level), result_(result) {}

void PlumeModel::setClassWind() {
  if (const auto wind = defaultWind(inputs_().stabilityClass)) model_.classWind = *wind;
}

void PlumeModel::calcWindAtHeight() {
  if (model_.mgcPass == 1) {
    if (windTexts_ != inputs_.revision() || windInput_ != model_.windInput || windHeight_ != model_.htRelease) {
      wind_ = windNow();
      windTexts_ = inputs_.revision();
      windInput_ = model_.windInput;
      windHeight_ = model_.htRelease;
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

Source PlumeModel::source() {
  const ModelInputs& in = inputs_();
  return {in.release, in.Q.number(), in.M.number(), model_.htRelease, model_.htSimul, model_.windAtHeight};
}

void PlumeModel::plumeConc(double sy, double sz, double T, double& conc) {
  if (release() != Release::none) conc = axisConcentration(source(), sy, sz, T);
}

void PlumeModel::isoplethConc(double& conc) {
  if (release() == Release::none) return;
  conc = kept(trace_, model_.distX, &AxisTrace::Point::conc, [&] {
    return axisConcentration(source(), model_.sigmaY, model_.sigmaZ, isoplethTemperature);
  });
}

void PlumeModel::calcConcGround() {
  if (release() != Release::none)
    model_.concGround = groundMaximum(source(), model_.sigmaY, model_.sigmaZAtMax, releaseTemperature());
}

void PlumeModel::calcHalfWidthAt() {
  constexpr int concentrationOnly = 4;
  if (query_.drawMode != concentrationOnly) model_.levelConcAt = rounded(level_.constn[query_.plotLevel].number(), 2);
  calcSigmaYAt();
  calcSigmaZBaseAt();
  calcSigmaZAt();
  plumeConc(model_.sigmaYAt, model_.sigmaZAt, isoplethTemperature, model_.concAt);
  if (query_.drawMode == concentrationOnly) return;
  const double sigma = query_.isoElevate != 0 ? model_.sigmaZAt : model_.sigmaYAt;
  model_.halfWidthAt = model_.levelConcAt < model_.concAt ? halfWidth(model_.concAt, model_.levelConcAt, sigma) : 0;
  model_.halfWidthMax = model_.halfWidthAt;
  model_.halfWidthAtRounded = rounded(model_.halfWidthMax, 2);
}

}  // namespace noldarz
