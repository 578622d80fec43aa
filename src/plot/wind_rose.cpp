#include "plot/wind_rose.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/failure.h"
#include "plot/header.h"

namespace noldarz {

namespace {

constexpr double radian = 0.0175;      // degrees to radians of the rose
constexpr double halfSector = 11.25;   // degrees
constexpr double stepAngle = 0.25;     // degrees
constexpr double stepsOfHalf = 45;     // into which the change of radius of half a sector is divided
constexpr double windlessShare = 0.2;  // of the radius, in a sector without wind

std::size_t at(int sector) { return static_cast<std::size_t>(sector % sectorCount); }

}  // namespace

void WindRose::windRoseTable() {
  if (!sees_.wind.shareOut()) return;
  RoseState& rose = sees_.rose;
  const Trap passing = Trap::ignoring();
  passing.step([&] { printHeader(sees_.view, sees_.menu, sees_.project); });
  for (int k = 0; k < sectorCount / 2; ++k)
    passing.step([&] { rose.windHalf[at(2 * k)] = sees_.in.Givnwnd[k].number() * 0.5; });
  for (int j = 1; j < sectorCount; j += 2)
    rose.windHalf[at(j)] = 0.5 * rose.windHalf[at(j - 1)] + 0.5 * rose.windHalf[at(j + 1)];
  for (int j = 0; j < sectorCount; ++j) {
    passing.step(
        [&] { rose.windShare[at(j)] = checked(rose.windHalf[at(j)] + rose.windHalf[at(j)] / sees_.shares.windTotal); });
    rose.windFrac[at(j)] = rose.windShare[at(j)] / 100;
  }
}

bool WindRose::drawRoseEnd() { return draw(sees_.level.endpt, true); }

bool WindRose::drawRoseBegin() {
  const bool drawn = draw(sees_.level.bgnpt, false);
  sees_.desktop.setPointer(Pointer::standard);
  return drawn;
}

bool WindRose::draw(const FieldArray<levelCount>& distances, bool ends) {
  bool drawn = true;
  Trap{[&](const RuntimeFailure&) {
    sees_.desktop.messageBox(information("Unable to plot Zones."));
    sees_.view.Drw1.view().close();
    drawn = false;
  }}.step([&] {
    for (int level = 0; level < levelCount; ++level) {
      const Field& distance = distances[level];
      const bool none = distance.text() == mark::notApplicable || (distance.isNumeric() && distance.number() == 0);
      if (!none && sees_.zone.zonsplot[level].value() != 0) curve(level, distance, ends);
    }
  });
  return drawn;
}

double WindRose::radius(double whole, int sector, bool ends) const {
  const double share = sees_.rose.windFrac[at(sector)];
  return ends && share == 0 ? windlessShare * whole : whole - whole * share;
}

void WindRose::curve(int level, const Field& distance, bool ends) {
  sees_.plot.roseColour = levelColours.at(static_cast<std::size_t>(level));
  const Colour colour = basicPalette.at(static_cast<std::size_t>(sees_.plot.roseColour));
  const double whole = distance.number();
  const double before = radius(whole, sectorCount - 1, ends);
  double here = radius(whole, 0, ends);
  double r = (before - here) / 2 + here;
  double step = (here - before) / 2 / stepsOfHalf;  // of half a sector, towards its radius or away from it
  double t = 0;

  const auto point = [&](double& x, double& y) {
    const double angle = (t + sees_.plot.northDeg + 90) * radian;
    x = checked(std::cos(angle) * r / sees_.plot.plotScale + sees_.plot.sourceX);
    y = checked(std::sin(angle) * r / sees_.plot.plotScale + sees_.plot.sourceY);
  };
  double penX = 0;
  double penY = 0;
  point(penX, penY);
  bool labelled = false;
  for (int sector = 0; sector < sectorCount; ++sector) {
    const double next = radius(whole, sector + 1, ends);
    std::copy_n(std::array{radius(whole, sector + sectorCount - 1, ends), here, next}.begin(),
                3,
                sees_.rose.roseRadius.begin() + 1);
    const double away = (next - here) / 2 / stepsOfHalf;
    for (int i = 0; i * stepAngle < 2 * halfSector; ++i, t += stepAngle) {
      r += i * stepAngle <= halfSector ? step : away;
      double x = 0;
      double y = 0;
      point(x, y);
      sees_.view.canvas.Line(penX, penY, x, y, colour);
      penX = x;
      penY = y;
      if (std::exchange(labelled, true) || !ends) continue;
      sees_.view.canvas.PSet(x, y, placing);
      if (sees_.menu.hideDsply.value() != 0)
        sees_.view.canvas.Print(sees_.zone.zonsplot[level].caption() + " - " + distance.text() + " m");
    }
    here = next;
    step = away;
  }
}

}  // namespace noldarz
