// Finds the items of a scene that lie in a box, without a look at the others: grids one finer than the other, each item
// in the cell of its middle on the grid whose cells are as large as it is.
#pragma once

#include <functional>
#include <vector>

#include "platform/cad/scene.h"

namespace noldarz {

class SceneIndex {
 public:
  SceneIndex() = default;
  /// Of the items that the scene has now.
  explicit SceneIndex(const Scene& scene);

  /// How many items it knows.
  std::size_t size() const { return items_.size(); }
  /// Appends those whose boxes meet the box: large ones first, always in the same order.
  void find(const Scene& scene, const SceneBox& box, std::vector<std::uint32_t>& found) const;

 private:
  /// A range of columns or rows.
  struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  std::size_t levelOf(const SceneBox& box) const;
  std::size_t cellOf(const SceneBox& box) const;
  Range range(double from, double to, double origin, std::size_t level) const;
  static std::size_t cellsAcross(std::size_t level) { return std::size_t{1} << level; }
  /// Number of cells on all coarser grids.
  static std::size_t firstCell(std::size_t level) { return ((std::size_t{1} << (2 * level)) - 1) / 3; }

  double left_ = 0;
  double bottom_ = 0;
  double side_ = 1;
  std::size_t levels_ = 1;
  std::vector<std::uint32_t> begins_{0, 0};  // of each cell in items_, and their end
  std::vector<std::uint32_t> items_;
};

}  // namespace noldarz
