#include "engine/plume_model.h"

#include "engine/coefficients.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

void PlumeModel::setClassWind() {
  if (const auto wind = defaultWind(inputs_().stabilityClass)) sees_.model.classWind = *wind;
}

void PlumeModel::calcWindAtHeight() {
  if (sees_.model.mgcPass == 1) {
    if (windTexts_ != inputs_.revision() || windInput_ != sees_.model.windInput ||
        windHeight_ != sees_.model.htRelease) {
      wind_ = windNow();
      windTexts_ = inputs_.revision();
      windInput_ = sees_.model.windInput;
      windHeight_ = sees_.model.htRelease;
    }
    sees_.model.windAtHeight = wind_;
  }
  sees_.result.wndvel.setPlainNumber(sees_.model.windAtHeight);
}

double PlumeModel::windNow() {
  const ModelInputs& in = inputs_();
  const bool usersWind = in.stabilityClass == customClass && sees_.model.htRelease > windReferenceHeight;
  return windAtReleaseHeight(
      usersWind ? in.wind.number() : sees_.model.windInput, sees_.model.htRelease, in.stabilityClass, in.terrain);
}

void PlumeModel::updateSigmaZBase(double distance, double& base) {
  const ModelInputs& in = inputs_();
  if (in.stabilityClass != noClass) base = checked(sigmaZFromClass(in.stabilityClass, distance));
  sees_.model.windInput = in.wind.number();
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

void PlumeModel::calcSigmaZBase() { updateSigmaZBase(sees_.model.distX, sees_.model.sigmaZBase); }
void PlumeModel::calcSigmaZ() { updateSigmaZ(sees_.model.distX, sees_.model.sigmaZBase, sees_.model.sigmaZ); }
void PlumeModel::calcSigmaY() { updateSigmaY(sees_.model.distX, sees_.model.sigmaY); }

void PlumeModel::calcSigmaZBaseAt() { updateSigmaZBase(sees_.model.distAt, sees_.model.sigmaZBaseAt); }
void PlumeModel::calcSigmaZAt() { updateSigmaZ(sees_.model.distAt, sees_.model.sigmaZBaseAt, sees_.model.sigmaZAt); }
void PlumeModel::calcSigmaYAt() { updateSigmaY(sees_.model.distAt, sees_.model.sigmaYAt); }

Source PlumeModel::source() {
  const ModelInputs& in = inputs_();
  return {
      in.release, in.Q.number(), in.M.number(), sees_.model.htRelease, sees_.model.htSimul, sees_.model.windAtHeight};
}

void PlumeModel::plumeConc(double sy, double sz, double T, double& conc) {
  if (release() != Release::none) conc = axisConcentration(source(), sy, sz, T);
}

void PlumeModel::isoplethConc(double& conc) {
  plumeConc(sees_.model.sigmaY, sees_.model.sigmaZ, isoplethTemperature, conc);
}

std::optional<AxisRange> PlumeModel::axisRange(double from, double to) {
  const ModelInputs& in = inputs_();
  if (stepsPlainly_ || in.release == Release::none) return {};
  const bool numbers = in.Q.isNumber() && in.M.isNumber() && in.density.isNumber() && in.wind.isNumber();
  if (!numbers) return {};
  return noldarz::axisRange(source(), in.stabilityClass, in.density.value, isoplethTemperature, from, to);
}

void PlumeModel::calcConcGround() {
  if (release() != Release::none)
    sees_.model.concGround = groundMaximum(source(), sees_.model.sigmaY, sees_.model.sigmaZAtMax, releaseTemperature());
}

void PlumeModel::calcHalfWidthAt() {
  constexpr int concentrationOnly = 4;
  if (sees_.query.drawMode != concentrationOnly)
    sees_.model.levelConcAt = rounded(sees_.level.constn[sees_.query.plotLevel].number(), 2);
  calcSigmaYAt();
  calcSigmaZBaseAt();
  calcSigmaZAt();
  plumeConc(sees_.model.sigmaYAt, sees_.model.sigmaZAt, isoplethTemperature, sees_.model.concAt);
  if (sees_.query.drawMode == concentrationOnly) return;
  const double sigma = sees_.query.isoElevate != 0 ? sees_.model.sigmaZAt : sees_.model.sigmaYAt;
  sees_.model.halfWidthAt =
      sees_.model.levelConcAt < sees_.model.concAt ? halfWidth(sees_.model.concAt, sees_.model.levelConcAt, sigma) : 0;
  sees_.model.halfWidthMax = sees_.model.halfWidthAt;
  sees_.model.halfWidthAtRounded = rounded(sees_.model.halfWidthMax, 2);
}

}  // namespace noldarz
