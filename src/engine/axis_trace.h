// What the search for begin points has worked out along the axis. It goes over the same distances again for each
// lower level, with the same inputs; the trace gives them back. Used by the plume model alone.
#pragma once

#include <cstddef>
#include <vector>

namespace noldarz {

class AxisTrace {
 public:
  /// Values at a distance; a negative one is not worked out yet.
  struct Point {
    double distance;         // m
    double sigmaZBase = -1;  // m
    double sigmaY = -1;      // m
    double conc = -1;        // ppm, at the temperature of the isopleth tests
  };

  /// The point of the distance: the current one, the next one, the first one of the trace, or a new one behind the
  /// last. Distances that leave the trace begin another.
  Point& at(double distance) {
    if (current_ < points_.size() && points_[current_].distance == distance) return points_[current_];
    if (current_ + 1 < points_.size() && points_[current_ + 1].distance == distance) return points_[++current_];
    if (!points_.empty() && points_.front().distance == distance) return points_[current_ = 0];
    if (current_ + 1 < points_.size()) points_.clear();
    points_.push_back({distance});
    return points_[current_ = points_.size() - 1];
  }

 private:
  std::vector<Point> points_;
  std::size_t current_ = 0;
};

}  // namespace noldarz
