#include "platform/dial.h"

#include <cmath>
#include <utility>

#include "platform/plane.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double hitWidth = 45;  // twips: 3 pixels of 1/96 inch
constexpr double barbAngle = 5;  // degrees beside the wind arm

}  // namespace

void LineField::setEnds(double x1, double y1, double x2, double y2) const { field.setPlace(x1, y1, x2 - x1, y2 - y1); }

bool LineField::isUnder(double x, double y) const { return distanceToLine(x, y, x1(), y1(), x2(), y2()) <= hitWidth; }

LineField lineIn(Field& ground, const char* name) { return {ground.view().add(FieldKind::shape, name).in(ground)}; }

LineField armIn(Field& ground, const char* name, Colour colour) {
  const LineField arm = lineIn(ground, name);
  arm.field.setForeColour(colour);
  arm.showGrip(false);
  return arm;
}

WindArm::WindArm(Field& ground, const Size& sizes)
    : size(sizes),
      wndarm(armIn(ground, "wndarm", windArmColour)),
      wndarm_1(armIn(ground, "wndarm_1", windArmColour)),
      wndarm_2(armIn(ground, "wndarm_2", windArmColour)),
      wndlbl(ground.view().label("wndlbl", "WIND").in(ground)) {
  showWind(0);
}

void WindArm::showWind(double degrees) const {
  const auto x = [&](double length, double angle) { return size.centreX + length * std::cos(angle * dialRadian); };
  const auto y = [&](double length, double angle) { return size.centreY + length * std::sin(angle * dialRadian); };
  const double arm = degrees - 90;  // the axes begin at the right
  wndarm.setEnds(x(size.wind, arm), y(size.wind, arm), size.centreX, size.centreY);
  for (const auto& [barb, angle] : {std::pair{wndarm_1, arm - barbAngle}, std::pair{wndarm_2, arm + barbAngle}})
    barb.setEnds(wndarm.x1(), wndarm.y1(), x(size.barb, angle), y(size.barb, angle));
  wndlbl.setLeft(wndarm.x1() + size.wordRight);
  wndlbl.setTop(wndarm.y1() + size.wordDown);
}

int dialDegrees(double x, double y, double centreX, double centreY) {
  constexpr double degreesPerRadian = 57.25;
  const int a = toInteger(rounded(uprightAngle(centreX + 0.001 - x, centreY + 0.001 - y) * degreesPerRadian, 0));
  if (y > centreY) return wholeTurn / 2 - a;
  return x > centreX ? -a : wholeTurn - a;
}

void turnDial(Field& slider, int degrees) {
  if (slider.value() == degrees || !slider.isInRange(degrees)) return;
  slider.setValue(degrees);
  slider.fire(Event::change);
}

}  // namespace noldarz
