#include "engine/isopleth.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double degreesPerRadian = 57.29;  // these digits, not 180 / pi
constexpr double pi = 3.14159;              // these digits
constexpr double hectaresPerSquareMetre = 0.0001;
constexpr double smallestAreaInThreeDecimals = 0.001;  // Ha

constexpr double ellipsoidFactor = 4.1877;  // 4/3 pi, with these digits
constexpr double airDensity = 1.2928;       // kg/m3 at 0 deg C
constexpr double poundsPerGram = 0.002204634;

}  // namespace

Isopleth::Isopleth(ModelState& model, LevelState& passes, const SweepState& sweep, PlumeModel& plume,
                   const ScenarioInputs& in, const LevelFields& level, const ResultFields& result, Progress& progress)
    : model_(model),
      passes_(passes),
      sweep_(sweep),
      plume_(plume),
      in_(in),
      level_(level),
      result_(result),
      progress_(progress) {}

void Isopleth::calcHalfWidth() {
  plume_.plumeConc(model_.sigmaYAt, model_.sigmaZAt, isoplethTemperature, model_.concAt);
  if (model_.concAt > model_.levelConcAt)
    passes_.halfWidthCur = halfWidth(model_.concAt, model_.levelConcAt, model_.sigmaYAt);
}

void Isopleth::findMaxWidth(const Trap& regime) {
  if (passes_.widthIdx >= levelCount) return;
  const auto atMaximumDistance = [&] { return in_.enddisttxt.number() == model_.distAt; };
  Stride stride;
  for (;;) {
    regime.steps([&] { progress_.showProgress(); },
                 [&] { plume_.calcSigmaYAt(); },
                 [&] { plume_.calcSigmaZBaseAt(); },
                 [&] { plume_.calcSigmaZAt(); });
    passes_.halfWidthLast = passes_.halfWidthPrev;
    calcHalfWidth();
    if (passes_.halfWidthLast >= passes_.halfWidthCur) {  // the widest point is passed
      model_.halfWidthMax = passes_.halfWidthCur;
      passes_.maxWidthDist = model_.distAt;
      break;
    }
    passes_.halfWidthPrev = passes_.halfWidthCur;
    skipWideningSteps(stride);
    model_.distAt += sweep_.sweepStep;
    if (regime.holds(atMaximumDistance)) break;
    if (model_.distAt >= farthestDistance) return level_.setWidth(passes_.widthLevel, mark::beyond(farthestDistance));
  }
  level_.distmaxisop[passes_.widthLevel].setText(Format(passes_.maxWidthDist, "0.00"));
  level_.isopwdth[passes_.widthLevel].setText(Format(model_.halfWidthMax + model_.halfWidthMax, "0.00"));
}

void Isopleth::skipWideningSteps(Stride& stride) {
  const int most = std::min(stride.steps(), progress_.stepsToTurn());
  const auto [before, next, steps] = stretchAhead(model_.distAt, sweep_.sweepStep, farthestDistance, most);
  if (steps < 2) return;
  const ParsedNumber& end = in_.enddisttxt.parsed();
  // The last step of a march that comes to its end knows the half width one step before.
  const double behind = next + sweep_.sweepStep;
  const bool meetsEnd =
      !end.isNumber() || (model_.distAt < end.value && end.value <= behind) || behind >= farthestDistance;
  const auto range = meetsEnd ? std::nullopt : plume_.axisRange(model_.distAt, next);
  if (!range || !range->widens(model_.levelConcAt)) return stride.failed();
  model_.distAt = before;
  progress_.skip(steps - 1);
  stride.succeeded();
}

void Isopleth::calcLevelShape(int level, const Trap& regime) {
  const Field& width = level_.isopwdth[level];
  regime.steps(
      [&] {
        const double tangent = checked((width.number() * 0.5) / divisor(level_.distmaxisop[level].number()));
        level_.isopang[level].setText(Format(std::atan(tangent) * degreesPerRadian, "0.00"));
      },
      [&] {
        const double ellipse = (width.number() / 2) * pi * (level_.isoplngt[level].number() / 2);
        const double area = rounded(ellipse * hectaresPerSquareMetre, 5);
        level_.isoparea[level].setText(Format(area, area < smallestAreaInThreeDecimals ? "0.00000" : "0.000"));
      });
}

/// T: half the length times a quarter of the width of a level; the width enters to the first power.
double Isopleth::levelVolume(int level) const {
  return (level_.isoplngt[level].number() / 2) * (level_.isopwdth[level].number() / 4);
}

/// D: density (kg/m3) of the mixture of gas and air at the concentration of a level.
double Isopleth::levelDensity(int level) const {
  const double c = level_.constn[level].number();
  const double v = in_.vapordnstytxt.number();
  return (airDensity * v * c) / 1000000 + (1 - c / 1000000) * airDensity;
}

bool Isopleth::captionIn(int level, std::initializer_list<std::string_view> texts) const {
  return std::find(texts.begin(), texts.end(), level_.conclbl[level].caption()) != texts.end();
}

void Isopleth::calcFlammableMass() {
  const auto T = [this](int level) { return levelVolume(level); };
  const auto D = [this](int level) { return levelDensity(level); };
  constexpr double f = ellipsoidFactor;  // multiplies only the first term of a volume
  const auto show = [this](double grams) { result_.expmass.setText(Format(poundsPerGram * grams, "0.000")); };
  const auto isLel = [this](int level) { return captionIn(level, {"LEL", "LEL:", "LEL.", "Lel", "Lel:", "Lel."}); };

  if (isLel(2)) {
    const double V = f * T(1) + T(2) - T(0);
    show((V * D(1) + V * D(2)) - f * T(0) * D(0));
  } else if (isLel(0)) {
    show(f * T(0) * D(0));
  } else if (captionIn(0, {"TEET3/IDLH", "TEET3/IDLH:", "TEET3/IDLH."}) ||
             captionIn(2, {"Teel/Idlh", "Teel/Idlh:", "Teel/Idlh."})) {
    const double V = f * T(0) + T(1);
    show(V * D(1) + V * D(0));
  } else if (captionIn(1, {"LEL", "LEL:", "LEL.", "Lel."})) {
    const double V = f * T(1) - T(0);
    show(V * D(1) - f * T(0) * D(0));
  } else {
    result_.expmass.setText(mark::nothing);
  }
}

}  // namespace noldarz
