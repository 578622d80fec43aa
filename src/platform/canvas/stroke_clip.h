// Lines cut to what a page shows, so that a drawing far beyond its canvas costs nothing and overflows no file format.
#pragma once

#include <span>
#include <vector>

#include "platform/canvas/replay.h"

namespace noldarz {

/// From (left, top) to (right, bottom), mm.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// The pieces of the line that lie within the box, in order.
std::vector<std::vector<Point>> clipped(std::span<const Point> line, const Box& box);

/// A circle as a line that is nowhere farther from it than 0.01 mm, for radii up to a kilometre of paper.
std::vector<Point> circleLine(Point centre, double radius);

}  // namespace noldarz
