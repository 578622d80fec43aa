// Plays a drawing on a painter of a screen or a file: follows the current point, the width and the font through the
// list, joins lines that go on from one another to one stroke, and leaves out points that no eye tells apart.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "platform/canvas/canvas.h"

namespace noldarz {

struct Point {
  double x = 0;  ///< mm
  double y = 0;  ///< mm
  bool operator==(const Point&) const = default;
};

struct Stroke {
  Colour colour{};
  int width = 1;  ///< pixels of 1/96 inch
  bool operator==(const Stroke&) const = default;
};

/// What takes a drawing, in millimetres.
class Painter {
 public:
  Painter() = default;
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;
  virtual ~Painter() = default;

  virtual void dot(Point at, Colour colour) = 0;
  /// Two points or more.
  virtual void polyline(std::span<const Point> points, const Stroke& stroke) = 0;
  virtual void circle(Point centre, double radius, const Stroke& stroke) = 0;
  /// One line of text, its top left corner.
  virtual void text(Point at, std::string_view line, bool bold, bool transparent) = 0;
};

/// Blanks that a text begins with. The box behind a text leaves them out: they may lie over a mark.
inline std::size_t leadingBlanks(std::string_view line) { return std::min(line.find_first_not_of(' '), line.size()); }

class Replay {
 public:
  /// Points of a stroke nearer than `tolerance` (mm) to the one before are left out, never its ends.
  explicit Replay(double tolerance = 0) : tolerance_(tolerance) {}

  /// Paints what the drawing has beyond what this replay has painted of it before. A drawing that has begun anew
  /// needs a replay of its own.
  void paint(const Drawing& drawing, Painter& painter);
  /// So many primitives of the drawing are painted.
  std::size_t painted() const { return painted_; }

 private:
  void line(const Primitive& line, Painter& painter);
  void endStroke(Painter& painter);
  void print(std::string_view text, Painter& painter);

  double tolerance_;
  std::size_t painted_ = 0;
  Point current_;
  int width_ = 1;
  bool bold_ = false;
  bool transparent_ = true;
  std::vector<Point> stroke_;
  Point strokeEnd_;
  Colour strokeColour_;
};

/// How many millimetres a picture shows apart.
inline constexpr double visibleDistance = 0.05;

}  // namespace noldarz
