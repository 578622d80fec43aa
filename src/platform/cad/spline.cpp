#include "platform/cad/spline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace noldarz {

namespace {

constexpr std::size_t degree = Spline::degree;

CadPoint operator+(const CadPoint& a, const CadPoint& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
CadPoint operator-(const CadPoint& a, const CadPoint& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
CadPoint operator*(double factor, const CadPoint& a) { return {factor * a.x, factor * a.y, factor * a.z}; }
double length(const CadPoint& a) { return std::hypot(a.x, a.y, a.z); }

/// A stretch of an interpolating spline: c0 + c1 v + c2 v^2 + c3 v^3, v from its beginning.
struct Cubic {
  CadPoint c0, c1, c2, c3;

  /// Its polar form: symmetric, affine in each of the three, the cubic itself where they are equal. Of three knots in a
  /// row it is a control point.
  CadPoint polar(double a, double b, double c) const {
    return c0 + ((a + b + c) / 3) * c1 + ((a * b + a * c + b * c) / 3) * c2 + (a * b * c) * c3;
  }
};

/// The natural cubic spline through points at parameters that rise: its second derivatives at the points solve a
/// tridiagonal system, done forward and back (de Boor, A Practical Guide to Splines, chapter 4).
std::vector<Cubic> naturalSpline(const std::vector<CadPoint>& points, const std::vector<double>& parameters) {
  const std::size_t last = points.size() - 1;
  const auto span = [&](std::size_t i) { return parameters[i + 1] - parameters[i]; };
  const auto slope = [&](std::size_t i) { return (1 / span(i)) * (points[i + 1] - points[i]); };
  std::vector<double> share(last, 0.0);         // of the next one in each
  std::vector<CadPoint> second(points.size());  // none at the ends
  for (std::size_t i = 1; i < last; ++i) {
    const double pivot = 2 * (span(i - 1) + span(i)) - span(i - 1) * share[i - 1];
    share[i] = span(i) / pivot;
    second[i] = (1 / pivot) * (6 * (slope(i) - slope(i - 1)) - span(i - 1) * second[i - 1]);
  }
  for (std::size_t i = last; i-- > 1;) second[i] = second[i] - share[i] * second[i + 1];
  std::vector<Cubic> cubics;
  for (std::size_t i = 0; i < last; ++i)
    cubics.push_back({points[i],
                      slope(i) - (span(i) / 6) * (2 * second[i] + second[i + 1]),
                      0.5 * second[i],
                      (1 / (6 * span(i))) * (second[i + 1] - second[i])});
  return cubics;
}

/// The point, or derivative, of a B-spline within a stretch between two knots (de Boor's algorithm).
CadPoint onStretch(std::span<const CadPoint> control, std::span<const double> knots, std::size_t ofDegree,
                   std::size_t stretch, double u) {
  std::array<CadPoint, degree + 1> d{};
  for (std::size_t i = 0; i <= ofDegree; ++i) d.at(i) = control[stretch - ofDegree + i];
  for (std::size_t round = 1; round <= ofDegree; ++round)
    for (std::size_t i = ofDegree; i >= round; --i) {
      const double left = knots[stretch - ofDegree + i];
      const double share = (u - left) / (knots[stretch + 1 + i - round] - left);
      d.at(i) = (1 - share) * d.at(i - 1) + share * d.at(i);
    }
  return d.at(ofDegree);
}

/// A distance that is none: what rounding does to places far out, and far below what is seen of the curve.
double lengthOfNothing(const std::vector<CadPoint>& points) {
  double farthest = 0;
  double extent = 0;
  for (const CadPoint& point : points) {
    farthest = std::max(farthest, length(point));
    extent = std::max(extent, length(point - points.front()));
  }
  if (!std::isfinite(farthest)) throw CadFailure("A point of the curve is out of range.");
  return extent * 1e-9 + farthest * 1e-14;
}

}  // namespace

Spline::Spline(const std::vector<CadPoint>& fit) {
  std::vector<CadPoint> distinct;
  std::vector<double> parameters;
  std::vector<int> crowd;  // of each stretch: the knots that it takes for points that are doubled
  const double nothing = lengthOfNothing(fit);
  for (const CadPoint& point : fit) {
    const double chord = distinct.empty() ? 0 : length(point - distinct.back());
    if (!distinct.empty() && chord <= nothing) {
      ++crowd[distinct.size() < 2 ? 0 : distinct.size() - 2];
      continue;
    }
    parameters.push_back(distinct.empty() ? 0 : parameters.back() + chord);
    distinct.push_back(point);
    if (crowd.size() < distinct.size()) crowd.push_back(0);
  }
  if (distinct.size() < 2) throw CadFailure("A curve needs two points that differ.");

  knots_.assign(degree, parameters.front());
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    knots_.push_back(parameters[i]);
    const int more = i + 1 < parameters.size() ? crowd[i] : 0;
    for (int k = 1; k <= more; ++k)
      knots_.push_back(std::lerp(parameters[i], parameters[i + 1], static_cast<double>(k) / (more + 1)));
  }
  knots_.insert(knots_.end(), degree, parameters.back());

  const std::vector<Cubic> cubics = naturalSpline(distinct, parameters);
  for (std::size_t i = 0; i + degree + 1 < knots_.size(); ++i) {
    // Any stretch that the control point bears on tells it; this one has a length.
    const std::size_t stretch = std::clamp<std::size_t>(i + 1, degree, knots_.size() - degree - 2);
    const auto cubic = static_cast<std::size_t>(
        std::upper_bound(parameters.begin(), parameters.end() - 1, knots_[stretch]) - parameters.begin() - 1);
    const double from = parameters[cubic];
    control_.push_back(cubics[cubic].polar(knots_[i + 1] - from, knots_[i + 2] - from, knots_[i + 3] - from));
  }
}

void Spline::rotate(const CadPoint& base, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (CadPoint& point : control_) {
    const double x = point.x - base.x;
    const double y = point.y - base.y;
    point.x = base.x + x * c - y * s;
    point.y = base.y + x * s + y * c;
  }
}

std::vector<CadPoint> Spline::points(int each) const {
  std::vector<CadPoint> found{control_.front()};
  for (std::size_t stretch = degree; stretch < control_.size(); ++stretch)
    for (int i = 1; i <= each; ++i)
      found.push_back(onStretch(control_,
                                knots_,
                                degree,
                                stretch,
                                std::lerp(knots_[stretch], knots_[stretch + 1], static_cast<double>(i) / each)));
  return found;
}

double Spline::area() const {
  // Half the integral of x dy - y dx. On a stretch that is a polynomial of degree 5, for which three points of Gauss
  // are exact.
  struct Node {
    double place;
    double weight;
  };
  static const std::array<Node, 3> nodes{
      {{0.5 - std::sqrt(0.15), 5.0 / 18}, {0.5, 8.0 / 18}, {0.5 + std::sqrt(0.15), 5.0 / 18}}};
  std::vector<CadPoint> slopes;  // control points of the derivative, whose knots lack the first and the last one
  for (std::size_t i = 0; i + 1 < control_.size(); ++i)
    slopes.push_back((degree / (knots_[i + degree + 1] - knots_[i + 1])) * (control_[i + 1] - control_[i]));
  const std::span<const double> inner = std::span{knots_}.subspan(1, knots_.size() - 2);
  double twice = 0;
  for (std::size_t stretch = degree; stretch < control_.size(); ++stretch)
    for (const Node& node : nodes) {
      const double u = std::lerp(knots_[stretch], knots_[stretch + 1], node.place);
      const CadPoint p = onStretch(control_, knots_, degree, stretch, u) - control_.front();
      const CadPoint d = onStretch(slopes, inner, degree - 1, stretch - 1, u);
      twice += node.weight * (knots_[stretch + 1] - knots_[stretch]) * (p.x * d.y - p.y * d.x);
    }
  return std::abs(twice / 2);
}

}  // namespace noldarz
