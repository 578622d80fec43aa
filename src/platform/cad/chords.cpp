#include "platform/cad/chords.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/cad/frame.h"

namespace noldarz {

namespace {

constexpr double sameAngle = 1e-9;  // radians
constexpr int mostDegree = 15;

/// A point times its weight, and the weight.
struct Weighted {
  CadPoint point;
  double weight = 1;
};

Weighted between(const Weighted& a, const Weighted& b, double part) {
  return {a.point * (1 - part) + b.point * part, a.weight * (1 - part) + b.weight * part};
}

void check(const RationalSpline& spline) {
  const auto degree = static_cast<std::size_t>(spline.degree);
  const bool fits = spline.degree >= 1 && spline.degree <= mostDegree && spline.control.size() > degree &&
                    spline.knots.size() == spline.control.size() + degree + 1 &&
                    std::is_sorted(spline.knots.begin(), spline.knots.end()) &&
                    (spline.weights.empty() || spline.weights.size() == spline.control.size()) &&
                    std::all_of(spline.weights.begin(), spline.weights.end(), [](double weight) { return weight > 0; });
  if (!fits) fail(FailureNumber::invalidArgument);
}

/// The point of the parameter in the stretch that begins at the knot, by de Boor's scheme.
CadPoint at(const RationalSpline& spline, std::size_t knot, double parameter) {
  const auto degree = static_cast<std::size_t>(spline.degree);
  std::array<Weighted, mostDegree + 1> row;
  for (std::size_t i = 0; i <= degree; ++i) {
    const std::size_t from = knot - degree + i;
    const double weight = spline.weights.empty() ? 1 : spline.weights[from];
    row[i] = {spline.control[from] * weight, weight};
  }
  for (std::size_t level = 1; level <= degree; ++level)
    for (std::size_t i = degree; i >= level; --i) {
      const double begin = spline.knots[knot - degree + i];
      const double end = spline.knots[knot + 1 + i - level];
      row[i] = between(row[i - 1], row[i], end > begin ? (parameter - begin) / (end - begin) : 0);
    }
  return row[degree].point * (1 / divisor(row[degree].weight));
}

}  // namespace

double sweepBetween(double begin, double end) {
  const double sweep = std::fmod(end - begin, fullTurn);
  return sweep <= sameAngle ? sweep + fullTurn : sweep;
}

std::vector<CadPoint> chordsOf(const EllipseArc& arc, int perTurn) {
  const int count = std::max(1, static_cast<int>(std::ceil(std::fabs(arc.sweep) / fullTurn * perTurn - sameAngle)));
  std::vector<CadPoint> points;
  points.reserve(static_cast<std::size_t>(count) + 1);
  for (int i = 0; i <= count; ++i) {
    const double angle = arc.begin + arc.sweep * i / count;
    points.push_back(arc.centre + arc.across * std::cos(angle) + arc.up * std::sin(angle));
  }
  return points;
}

std::vector<CadPoint> bulgeChords(const CadPoint& from, const CadPoint& to, double bulge, int perTurn) {
  constexpr double straight = 1e-9;
  if (std::fabs(bulge) < straight || from == to) return {to};
  const CadPoint chord = to - from;
  const CadPoint left{-chord.y, chord.x, 0};
  const CadPoint centre = from + chord * 0.5 + left * ((1 - bulge * bulge) / (4 * bulge));
  const CadPoint across = from - centre;
  auto points = chordsOf(EllipseArc{centre, across, {-across.y, across.x, 0}, 0, 4 * std::atan(bulge)}, perTurn);
  points.erase(points.begin());
  points.back() = to;
  return points;
}

std::vector<CadPoint> chordsOf(const RationalSpline& spline) {
  check(spline);
  constexpr int each = 16;  // chords of a stretch between two knots
  const auto degree = static_cast<std::size_t>(spline.degree);
  const int steps = degree == 1 ? 1 : each;
  std::vector<CadPoint> points;
  for (std::size_t knot = degree; knot < spline.control.size(); ++knot) {
    const double begin = spline.knots[knot];
    const double stretch = spline.knots[knot + 1] - begin;
    if (!(stretch > 0)) continue;
    for (int i = points.empty() ? 0 : 1; i <= steps; ++i)
      points.push_back(at(spline, knot, begin + stretch * i / steps));
  }
  if (points.empty()) fail(FailureNumber::invalidArgument);
  return points;
}

}  // namespace noldarz
