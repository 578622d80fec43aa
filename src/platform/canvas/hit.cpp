#include "platform/canvas/hit.h"

#include <algorithm>
#include <cmath>

#include "platform/plane.h"

namespace noldarz {

namespace {

constexpr double pixel = 25.4 / 96;  // mm, of a stroke width

bool isOnLine(const Primitive& line, double x, double y, double reach) {
  if (x < std::min(line.x1, line.x2) - reach || x > std::max(line.x1, line.x2) + reach) return false;
  if (y < std::min(line.y1, line.y2) - reach || y > std::max(line.y1, line.y2) + reach) return false;
  return distanceToLine(x, y, line.x1, line.y1, line.x2, line.y2) <= reach;
}

}  // namespace

std::optional<Colour> colourAt(const Drawing& drawing, double x, double y) {
  using Kind = Primitive::Kind;
  std::optional<Colour> found;
  double reach = pixel;  // from the middle of a stroke, half a pixel more than it is wide
  for (const Primitive& p : drawing.primitives) {
    bool on = false;
    if (p.kind == Kind::DrawWidth) reach = (p.x1 + 1) / 2 * pixel;
    if (p.kind == Kind::Line) on = isOnLine(p, x, y, reach);
    if (p.kind == Kind::Circle) on = std::abs(std::hypot(x - p.x1, y - p.y1) - p.x2) <= reach;
    if (p.kind == Kind::PSet) on = std::abs(x - p.x1) <= pixel / 2 && std::abs(y - p.y1) <= pixel / 2;
    if (on) found = p.colour;
  }
  return found;
}

}  // namespace noldarz
