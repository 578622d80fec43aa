#include "platform/canvas/stroke_clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

namespace noldarz {

namespace {

/// The share of the way from a to b that lies within the box: where it enters and where it leaves, 0 to 1.
std::optional<std::pair<double, double>> shareWithin(Point a, Point b, const Box& box) {
  double enters = 0;
  double leaves = 1;
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  // Of each edge: how fast the way goes out over it, and how far its start lies inside.
  const std::array edges{std::pair{-dx, a.x - box.left},
                         std::pair{dx, box.right - a.x},
                         std::pair{-dy, a.y - box.top},
                         std::pair{dy, box.bottom - a.y}};
  for (const auto& [outward, inside] : edges) {
    if (outward == 0 && inside < 0) return {};
    if (outward < 0) enters = std::max(enters, inside / outward);
    if (outward > 0) leaves = std::min(leaves, inside / outward);
  }
  if (enters > leaves) return {};
  return std::pair{enters, leaves};
}

}  // namespace

std::vector<std::vector<Point>> clipped(std::span<const Point> line, const Box& box) {
  std::vector<std::vector<Point>> pieces;
  bool goesOn = false;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const Point a = line[i - 1];
    const Point b = line[i];
    const auto share = shareWithin(a, b, box);
    if (!share) {
      goesOn = false;
      continue;
    }
    const auto at = [&](double part) { return Point{a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)}; };
    if (!goesOn || share->first > 0) pieces.push_back({share->first > 0 ? at(share->first) : a});
    goesOn = share->second == 1;
    pieces.back().push_back(goesOn ? b : at(share->second));
  }
  return pieces;
}

std::vector<Point> circleLine(Point centre, double radius) {
  constexpr double tolerance = 0.01;  // mm
  constexpr double leastCorners = 12;
  constexpr double mostCorners = 1e6;
  const double corners =
      std::clamp(std::ceil(2 * std::numbers::pi * std::sqrt(radius / (8 * tolerance))), leastCorners, mostCorners);
  const int count = static_cast<int>(corners);
  std::vector<Point> line;
  line.reserve(static_cast<std::size_t>(count) + 1);
  for (int i = 0; i <= count; ++i) {
    const double angle = 2 * std::numbers::pi * (i % count) / count;
    line.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return line;
}

}  // namespace noldarz
