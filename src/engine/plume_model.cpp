#include "engine/plume_model.h"

#include "engine/coefficients.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

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

void PlumeModel::updateSigmaZBase(double distance, double& base) {
  const ModelInputs& in = inputs_();
  if (in.stabilityClass != noClass) base = checked(sigmaZFromClass(in.stabilityClass, distance));
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

void PlumeModel::updateSigmaY(double distance, double& sigma) {
  const int stabilityClass = inputs_().stabilityClass;
  if (stabilityClass != noClass) sigma = checked(sigmaYFromClass(stabilityClass, distance));
}

void PlumeModel::calcSigmaZBase() { updateSigmaZBase(model_.distX, model_.sigmaZBase); }
void PlumeModel::calcSigmaZ() { updateSigmaZ(model_.distX, model_.sigmaZBase, model_.sigmaZ); }
void PlumeModel::calcSigmaY() { updateSigmaY(model_.distX, model_.sigmaY); }

void PlumeModel::calcSigmaZBaseAt() { updateSigmaZBase(model_.distAt, model_.sigmaZBaseAt); }
void PlumeModel::calcSigmaZAt() { updateSigmaZ(model_.distAt, model_.sigmaZBaseAt, model_.sigmaZAt); }
void PlumeModel::calcSigmaYAt() { updateSigmaY(model_.distAt, model_.sigmaYAt); }

Source PlumeModel::source() {
  const ModelInputs& in = inputs_();
  return {in.release, in.Q.number(), in.M.number(), model_.htRelease, model_.htSimul, model_.windAtHeight};
}

void PlumeModel::plumeConc(double sy, double sz, double T, double& conc) {
  if (release() != Release::none) conc = axisConcentration(source(), sy, sz, T);
}

void PlumeModel::isoplethConc(double& conc) { plumeConc(model_.sigmaY, model_.sigmaZ, isoplethTemperature, conc); }

std::optional<AxisRange> PlumeModel::axisRange(double from, double to) {
  const ModelInputs& in = inputs_();
  if (stepsPlainly_ || in.release == Release::none) return {};
  const bool numbers = in.Q.isNumber() && in.M.isNumber() && in.density.isNumber() && in.wind.isNumber();
  if (!numbers) return {};
  return noldarz::axisRange(source(), in.stabilityClass, in.density.value, isoplethTemperature, from, to);
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
