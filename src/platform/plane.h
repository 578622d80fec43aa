// Geometry of the plane that drawings, dials and traces share. Pure.
#pragma once

#include <algorithm>
#include <cmath>

namespace noldarz {

/// Distance of a point from a line between two others, all in one unit.
inline double distanceToLine(double x, double y, double x1, double y1, double x2, double y2) {
  const double square = (x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1);
  const double along = square > 0 ? std::clamp(((x - x1) * (x2 - x1) + (y - y1) * (y2 - y1)) / square, 0.0, 1.0) : 0;
  return std::hypot(x - x1 - along * (x2 - x1), y - y1 - along * (y2 - y1));
}

/// atan(across / up) in radians: the angle of a way against the upright, a quarter turn where it leads straight across.
inline double uprightAngle(double across, double up) { return across == 0 ? 0 : std::atan(across / up); }

}  // namespace noldarz
