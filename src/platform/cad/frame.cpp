#include "platform/cad/frame.h"

#include <cmath>

namespace noldarz {

CadPoint cross(const CadPoint& a, const CadPoint& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double length(const CadPoint& a) { return std::hypot(a.x, a.y, a.z); }

CadPoint direction(const CadPoint& a) { return a * (1 / divisor(length(a))); }

CadFrame CadFrame::ofExtrusion(const CadPoint& extrusion) {
  if (extrusion == CadPoint{0, 0, 1}) return {};
  constexpr double nearPole = 1. / 64;
  const CadPoint z = direction(extrusion);
  const bool upright = std::fabs(z.x) < nearPole && std::fabs(z.y) < nearPole;
  const CadPoint x = direction(cross(upright ? CadPoint{0, 1, 0} : CadPoint{0, 0, 1}, z));
  return {x, cross(z, x), z, {}};
}

CadFrame CadFrame::ofTurn(double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return {{cosine, sine, 0}, {-sine, cosine, 0}, {0, 0, 1}, {}};
}

}  // namespace noldarz
