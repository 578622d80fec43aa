// The boundaries of a hatch: polylines, or edges one after another. Their codes mean different things by the edge, so
// they are read in order.
#include "platform/cad/entity_shapes.h"

namespace noldarz {

namespace {

constexpr int polylinePath = 2;

class Boundaries {
 public:
  Boundaries(CadShapes& shapes, const EntityRecord& record, const ShapeStanding& standing, const CadFrame& frame)
      : shapes_(shapes), record_(record), standing_(standing), frame_(frame), elevation_(record.number(30, 0)) {}

  void read() {
    while (at_ < record_.tags.size() && record_.tags[at_].code != 91) ++at_;
    for (int count = integer(91); count > 0; --count) {
      const int kind = integer(92);
      (kind & polylinePath) != 0 ? polyline() : edges();
      if (!comes(97)) continue;  // the entities that it was made from
      for (int sources = integer(97); sources > 0; --sources) take(330);
    }
  }

 private:
  enum Edge : std::uint8_t { lineEdge = 1, arcEdge = 2, ellipseEdge = 3, splineEdge = 4 };

  bool comes(int code) const { return at_ < record_.tags.size() && record_.tags[at_].code == code; }
  const DxfTag& take(int code) {
    if (!comes(code)) fail(FailureNumber::typeMismatch);
    return record_.tags[at_++];
  }
  double number(int code) { return cadNumber(take(code)); }
  double number(int code, double otherwise) { return comes(code) ? number(code) : otherwise; }
  int integer(int code) { return cadInteger(take(code)); }
  int integer(int code, int otherwise) { return comes(code) ? integer(code) : otherwise; }
  CadPoint point(int code) {
    const double x = number(code);
    return {x, number(code + 10), elevation_};
  }

  void polyline() {
    const bool bulges = integer(72, 0) != 0;
    const bool closed = integer(73, 1) != 0;
    std::vector<PlaneVertex> vertices;
    for (int count = integer(93); count > 0; --count) {
      vertices.push_back({point(10)});
      const double bulge = number(42, 0);
      if (bulges) vertices.back().bulge = bulge;
    }
    shapes_.begin(standing_);
    addPolyline(shapes_, vertices, closed, frame_);
  }

  void edges() {
    open_ = false;
    for (int count = integer(93); count > 0; --count) {
      const int kind = integer(72);
      if (kind == lineEdge)
        line();
      else if (kind == arcEdge || kind == ellipseEdge)
        arc(kind == ellipseEdge);
      else if (kind == splineEdge)
        spline();
      else
        fail(FailureNumber::invalidArgument);
    }
  }

  void line() {
    const CadPoint from = point(10);
    add({from, point(11)});
  }

  void arc(bool ellipse) {
    EllipseArc arc{.centre = point(10), .across = {}, .up = {}};
    if (ellipse) {
      arc.across = point(11);
      arc.across.z = 0;
    }
    const double size = number(40);  // the radius, or the ratio of the axes
    if (!ellipse) arc.across = {size, 0, 0};
    arc.up = CadPoint{-arc.across.y, arc.across.x, 0} * (ellipse ? size : 1);
    arc.begin = number(50) * radiansPerDegree;
    const double end = number(51) * radiansPerDegree;
    arc.sweep = sweepBetween(arc.begin, end);
    if (integer(73, 1) == 0) arc.up = arc.up * -1;  // clockwise: the angles count the other way
    add(chordsOf(arc, shapes_.chordsPerTurn));
  }

  void spline() {
    RationalSpline curve;
    curve.degree = integer(94);
    const bool rational = integer(73, 0) != 0;
    integer(74, 0);
    int knots = integer(95);
    int control = integer(96);
    for (; knots > 0; --knots) curve.knots.push_back(number(40));
    for (; control > 0; --control) {
      curve.control.push_back(point(10));
      const double weight = number(42, 1);
      if (rational) curve.weights.push_back(weight);
    }
    // Fit points come behind; a count of sources looks the same, but is followed by none.
    if (comes(97) && at_ + 1 < record_.tags.size() && record_.tags[at_ + 1].code == 11) {
      for (int fit = integer(97); fit > 0; --fit) point(11);
      if (comes(12)) point(12);
      if (comes(13)) point(13);
    } else if (comes(97) && record_.tags[at_].integer() == 0 && at_ + 1 < record_.tags.size() &&
               (record_.tags[at_ + 1].code == 97 || record_.tags[at_ + 1].code == 72)) {
      integer(97);
    }
    add(chordsOf(curve));
  }

  /// Goes on with the chain where the edge begins at its end.
  void add(std::vector<CadPoint> edge) {
    constexpr double gap = 1e-6;
    for (CadPoint& point : edge) point = frame_.at(point);
    const bool follows = open_ && length(edge.front() - shapes_.points.back()) <= gap * (1 + length(edge.front()));
    if (!follows) {
      shapes_.begin(standing_);
      shapes_.add(edge.front(), true);
    }
    open_ = true;
    edge.erase(edge.begin());
    shapes_.addCurve(edge);
  }

  CadShapes& shapes_;
  const EntityRecord& record_;
  ShapeStanding standing_;
  const CadFrame& frame_;
  double elevation_;
  std::size_t at_ = 0;
  bool open_ = false;
};

}  // namespace

void addHatch(CadShapes& shapes, const EntityRecord& record, const ShapeStanding& standing, const CadFrame& frame) {
  Boundaries{shapes, record, standing, frame}.read();
}

}  // namespace noldarz
