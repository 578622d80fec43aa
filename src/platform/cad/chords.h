// Curves as chains of chords, close enough for the eye.
#pragma once

#include <numbers>
#include <vector>

#include "platform/cad/drawing.h"

namespace noldarz {

inline constexpr double fullTurn = 2 * std::numbers::pi;  // radians
inline constexpr double radiansPerDegree = std::numbers::pi / 180;

/// An ellipse, or a part of it: centre + cos(t) * across + sin(t) * up, for t from `begin` over `sweep` (radians).
struct EllipseArc {
  CadPoint centre;
  CadPoint across;
  CadPoint up;
  double begin = 0;
  double sweep = fullTurn;
};

/// Counter-clockwise from one angle to the other: above 0, a full turn when they are the same.
double sweepBetween(double begin, double end);

/// From its begin to its end, so many chords for a full turn.
std::vector<CadPoint> chordsOf(const EllipseArc& arc, int perTurn);

/// The arc of a polyline between two points in the plane: `bulge` is the tangent of a quarter of its sweep, above 0
/// counter-clockwise. Without the first point.
std::vector<CadPoint> bulgeChords(const CadPoint& from, const CadPoint& to, double bulge, int perTurn);

/// A rational B-spline.
struct RationalSpline {
  int degree = 3;
  std::vector<double> knots;
  std::vector<CadPoint> control;
  std::vector<double> weights;  ///< none: all are 1
};

/// Fails with invalidArgument for one whose numbers don't fit together.
std::vector<CadPoint> chordsOf(const RationalSpline& spline);

}  // namespace noldarz
