// A place and a stance in space: how points of an entity or a block are carried over into what holds it.
#pragma once

#include "platform/cad/drawing.h"

namespace noldarz {

inline CadPoint operator+(const CadPoint& a, const CadPoint& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline CadPoint operator-(const CadPoint& a, const CadPoint& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline CadPoint operator*(const CadPoint& a, double by) { return {a.x * by, a.y * by, a.z * by}; }
CadPoint cross(const CadPoint& a, const CadPoint& b);
double length(const CadPoint& a);
/// The same direction with the length 1. Fails with divisionByZero for a point without one.
CadPoint direction(const CadPoint& a);

struct CadFrame {
  // What the axes and the origin become.
  CadPoint x{1, 0, 0};
  CadPoint y{0, 1, 0};
  CadPoint z{0, 0, 1};
  CadPoint origin;

  CadPoint turned(const CadPoint& p) const { return x * p.x + y * p.y + z * p.z; }
  CadPoint at(const CadPoint& p) const { return turned(p) + origin; }
  /// What is carried by the inner one first, then by this one.
  CadFrame of(const CadFrame& inner) const {
    return {turned(inner.x), turned(inner.y), turned(inner.z), at(inner.origin)};
  }

  /// The coordinates of an entity with that direction of extrusion, by the rule of the arbitrary axis: its x axis is
  /// level. Fails for a direction without length.
  static CadFrame ofExtrusion(const CadPoint& extrusion);
  /// Turned about the z axis (radians).
  static CadFrame ofTurn(double angle);
  static CadFrame ofScale(double x, double y, double z) { return {{x, 0, 0}, {0, y, 0}, {0, 0, z}, {}}; }
  static CadFrame ofMove(const CadPoint& by) { return {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, by}; }
};

}  // namespace noldarz
