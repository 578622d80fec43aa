#include "engine/isopleth.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "engine/constants.h"
#include "engine/stretch.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double smallestAreaInThreeDecimals = 0.001;  // Ha

}  // namespace

void Isopleth::calcHalfWidth() {
  sees_.plume.plumeConc(sees_.model.sigmaYAt, sees_.model.sigmaZAt, isoplethTemperature, sees_.model.concAt);
  if (sees_.model.concAt > sees_.model.levelConcAt)
    sees_.passes.halfWidthCur = halfWidth(sees_.model.concAt, sees_.model.levelConcAt, sees_.model.sigmaYAt);
}

void Isopleth::findMaxWidth(const Trap& regime) {
  if (sees_.passes.widthIdx >= levelCount) return;
  const auto atMaximumDistance = [&] { return sees_.in.enddisttxt.number() == sees_.model.distAt; };
  Stride stride;
  for (;;) {
    regime.steps([&] { sees_.progress.showProgress(); },
                 [&] { sees_.plume.calcSigmaYAt(); },
                 [&] { sees_.plume.calcSigmaZBaseAt(); },
                 [&] { sees_.plume.calcSigmaZAt(); });
    sees_.passes.halfWidthLast = sees_.passes.halfWidthPrev;
    calcHalfWidth();
    if (sees_.passes.halfWidthLast >= sees_.passes.halfWidthCur) {  // the widest point is passed
      sees_.model.halfWidthMax = sees_.passes.halfWidthCur;
      sees_.passes.maxWidthDist = sees_.model.distAt;
      break;
    }
    sees_.passes.halfWidthPrev = sees_.passes.halfWidthCur;
    sees_.progress.skip(stride.passOver(
        sees_.model.distAt,
        sees_.sweep.sweepStep,
        farthestDistance,
        [this](double next) { return isWideningTo(next); },
        sees_.progress.stepsToTurn()));
    sees_.model.distAt += sees_.sweep.sweepStep;
    if (regime.holds(atMaximumDistance)) break;
    if (sees_.model.distAt >= farthestDistance)
      return sees_.level.setWidth(sees_.passes.widthLevel, mark::beyond(farthestDistance));
  }
  sees_.level.distmaxisop[sees_.passes.widthLevel].setText(Format(sees_.passes.maxWidthDist, "0.00"));
  sees_.level.isopwdth[sees_.passes.widthLevel].setText(
      Format(sees_.model.halfWidthMax + sees_.model.halfWidthMax, "0.00"));
}

bool Isopleth::isWideningTo(double next) {
  const ParsedNumber& end = sees_.in.enddisttxt.parsed();
  // The last step of a march that comes to its end knows the half width one step before.
  const double beyond = next + sees_.sweep.sweepStep;
  if (!end.isNumber() || (sees_.model.distAt < end.value && end.value <= beyond) || beyond >= farthestDistance)
    return false;
  const auto range = sees_.plume.axisRange(sees_.model.distAt, next);
  return range && range->widens(sees_.model.levelConcAt);
}

void Isopleth::calcLevelShape(int level, const Trap& regime) {
  const Field& width = sees_.level.isopwdth[level];
  regime.steps(
      [&] {
        const double tangent = checked((width.number() * 0.5) / divisor(sees_.level.distmaxisop[level].number()));
        sees_.level.isopang[level].setText(Format(std::atan(tangent) * degreesPerRadian, "0.00"));
      },
      [&] {
        const double ellipse = (width.number() / 2) * pi * (sees_.level.isoplngt[level].number() / 2);
        const double area = rounded(ellipse * hectaresPerSquareMetre, 5);
        sees_.level.isoparea[level].setText(Format(area, area < smallestAreaInThreeDecimals ? "0.00000" : "0.000"));
      });
}

/// T: half the length times a quarter of the width of a level; the width enters to the first power.
double Isopleth::levelVolume(int level) const {
  return (sees_.level.isoplngt[level].number() / 2) * (sees_.level.isopwdth[level].number() / 4);
}

/// D: density (kg/m3) of the mixture of gas and air at the concentration of a level.
double Isopleth::levelDensity(int level) const {
  const double c = sees_.level.constn[level].number();
  const double v = sees_.in.vapordnstytxt.number();
  return (airDensity * v * c) / purePpm + (1 - c / purePpm) * airDensity;
}

bool Isopleth::captionIn(int level, std::initializer_list<std::string_view> texts) const {
  return std::find(texts.begin(), texts.end(), sees_.level.conclbl[level].caption()) != texts.end();
}

void Isopleth::calcFlammableMass() {
  const auto T = [this](int level) { return levelVolume(level); };
  const auto D = [this](int level) { return levelDensity(level); };
  constexpr double f = ellipsoidFactor;  // multiplies only the first term of a volume
  const auto show = [this](double grams) { sees_.result.expmass.setText(Format(poundsPerGram * grams, "0.000")); };
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
    sees_.result.expmass.setText(mark::nothing);
  }
}

}  // namespace noldarz
