#include "platform/cad/scene_index.h"

#include <algorithm>
#include <cmath>

namespace noldarz {

namespace {

constexpr std::size_t mostLevels = 11;
constexpr std::size_t itemsPerCell = 4;  // of the finest grid

}  // namespace

SceneIndex::SceneIndex(const Scene& scene) {
  if (scene.items.empty()) return;
  SceneBox whole = scene.items.front().box;
  for (const SceneItem& item : scene.items) whole.take(item.box);
  left_ = whole.left;
  bottom_ = whole.bottom;
  side_ = std::max({whole.right - whole.left, whole.top - whole.bottom, 1e-6});
  while (levels_ < mostLevels && cellsAcross(levels_) * cellsAcross(levels_) * itemsPerCell < scene.items.size())
    ++levels_;

  std::vector<std::uint32_t> cells;
  cells.reserve(scene.items.size());
  begins_.assign(firstCell(levels_) + 1, 0);
  for (const SceneItem& item : scene.items) {
    cells.push_back(static_cast<std::uint32_t>(cellOf(item.box)));
    ++begins_[cells.back() + 1];
  }
  for (std::size_t i = 1; i < begins_.size(); ++i) begins_[i] += begins_[i - 1];
  items_.resize(scene.items.size());
  std::vector<std::uint32_t> next = begins_;
  for (std::size_t i = 0; i < cells.size(); ++i) items_[next[cells[i]]++] = static_cast<std::uint32_t>(i);
}

std::size_t SceneIndex::levelOf(const SceneBox& box) const {
  const double size = std::max(box.right - box.left, box.top - box.bottom);
  std::size_t level = 0;
  while (level + 1 < levels_ && size * static_cast<double>(cellsAcross(level + 1)) <= side_) ++level;
  return level;
}

SceneIndex::Range SceneIndex::range(double from, double to, double origin, std::size_t level) const {
  const auto across = static_cast<double>(cellsAcross(level));
  const double cell = side_ / across;
  const auto place = [&](double at) {
    return static_cast<std::size_t>(std::clamp(std::floor((at - origin) / cell), 0., across - 1));
  };
  return {place(from), place(to) + 1};
}

std::size_t SceneIndex::cellOf(const SceneBox& box) const {
  const std::size_t level = levelOf(box);
  const double x = (box.left + box.right) / 2;
  const double y = (box.bottom + box.top) / 2;
  return firstCell(level) + range(y, y, bottom_, level).begin * cellsAcross(level) + range(x, x, left_, level).begin;
}

void SceneIndex::find(const Scene& scene, const SceneBox& box, std::vector<std::uint32_t>& found) const {
  for (std::size_t level = 0; level < levels_; ++level) {
    // An item reaches half a cell beyond the cell of its middle.
    const double reach = side_ / static_cast<double>(cellsAcross(level)) / 2;
    const Range columns = range(box.left - reach, box.right + reach, left_, level);
    const Range rows = range(box.bottom - reach, box.top + reach, bottom_, level);
    for (std::size_t row = rows.begin; row < rows.end; ++row) {
      const std::size_t cell = firstCell(level) + row * cellsAcross(level);
      const auto begin = items_.begin() + begins_[cell + columns.begin];
      const auto end = items_.begin() + begins_[cell + columns.end];
      std::copy_if(
          begin, end, std::back_inserter(found), [&](std::uint32_t item) { return scene.items[item].box.meets(box); });
    }
  }
}

}  // namespace noldarz
