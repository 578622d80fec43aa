// A cubic B-spline in space: through fit points, or by control points. The curve is exact: its turned form and its area
// are those of the curve, not of a polygon.
#pragma once

#include <vector>

#include "platform/cad/drawing.h"

namespace noldarz {

class Spline {
 public:
  /// The natural cubic spline through the points: chord lengths as parameters, no curvature at the ends. As many
  /// control points as there are points, and two more: a point at the place of the one before leaves the curve as it is
  /// and adds a knot in the middle of a stretch beside it. Fails with CadFailure for fewer than two distinct points.
  explicit Spline(const std::vector<CadPoint>& fit);

  static constexpr int degree = 3;
  const std::vector<CadPoint>& control() const { return control_; }
  /// Four more than control points; the first four are equal, and the last four.
  const std::vector<double>& knots() const { return knots_; }
  void setControl(std::size_t index, const CadPoint& point) { control_.at(index) = point; }
  void rotate(const CadPoint& base, double angle);

  /// Points on the curve, `each` per stretch between two knots, the first and the last point of the curve among them.
  std::vector<CadPoint> points(int each) const;
  /// What the curve and the straight line between its ends enclose in the plane (square units).
  double area() const;

 private:
  std::vector<CadPoint> control_;
  std::vector<double> knots_;
};

}  // namespace noldarz
