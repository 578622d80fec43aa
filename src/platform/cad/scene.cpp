#include "platform/cad/scene.h"

#include <cmath>
#include <memory>
#include <unordered_map>

#include "platform/cad/dxf_text.h"
#include "platform/cad/entity_shapes.h"

namespace noldarz {

namespace {

constexpr double farthest = 1e12;
constexpr std::size_t mostDepth = 64;
constexpr int foreground = 7;

/// What a block takes from its insert.
struct Inherited {
  std::uint32_t layer = 0;
  std::uint32_t colourLayer = 0;
  int colour = foreground;
  bool inBlock = false;
  bool frozen = false;  ///< the layer of the insert is: all goes with it
};

/// The point of a text carried over, and the text turned and scaled so. What is mirrored can still be read, and takes
/// the same room.
void carryText(const CadFrame& frame, const CadPoint* points, SceneText& text) {
  CadPoint along = frame.at(points[1]) - frame.at(points[0]);
  const CadPoint up = frame.at(points[2]) - frame.at(points[0]);
  const double width = std::hypot(along.x, along.y);
  const double area = along.x * up.y - along.y * up.x;
  if (area < 0 && along.x < 0) {
    along = along * -1;
    text.across = 1 - text.across;
  } else if (area < 0) {
    text.up = 1 - text.up;
  }
  text.height = std::fabs(area) / divisor(width);
  text.stretch *= width / divisor(text.height);
  text.angle = std::atan2(along.y, along.x);
}

class SceneBuilder {
 public:
  explicit SceneBuilder(const DxfFile& file)
      : file_(file), reader_(file, [this](std::string_view name) { return layerIndex(name); }) {
    scene_.layers.push_back({.name = "0"});
    for (const DxfLayer& layer : file.layers()) {
      const std::uint32_t index = indexOfKey(lowerCase(layer.name), layer.name);
      scene_.layers[index] = {layer.name, layer.colour, !layer.off && !layer.frozen};
      frozen_[index] = layer.frozen;
    }
  }

  Scene build() {
    CadShapes shapes;
    reader_.read(file_.entities(), shapes, [&] {
      if (scene_.points.size() > manyPoints) shapes.chordsPerTurn = coarseChords;
      unfold(shapes, {}, {});
      shapes.clear();
    });
    return std::move(scene_);
  }

 private:
  struct Block {
    CadPoint base;
    CadShapes shapes;
    bool unfolding = false;
  };

  std::uint32_t layerIndex(std::string_view name) {
    const auto known = byName_.find(name);
    if (known != byName_.end()) return known->second;
    const std::string text = file_.decoded(name);
    return byName_[name] = text.empty() ? 0 : indexOfKey(lowerCase(text), text);
  }
  std::uint32_t indexOfKey(const std::string& key, const std::string& name) {
    const auto [place, isNew] = byKey_.try_emplace(key, static_cast<std::uint32_t>(scene_.layers.size()));
    if (isNew) {
      scene_.layers.push_back({.name = name});
      frozen_.push_back(false);
    }
    return place->second;
  }

  bool isFull() {
    if (steps_ < Scene::mostItems && scene_.points.size() < Scene::mostPoints) return false;
    scene_.isWhole = false;
    return true;
  }

  /// What an entity of that standing has in what holds it.
  Inherited inheritedBy(const ShapeStanding& standing, const Inherited& holder) const {
    Inherited own = holder;
    if (standing.layer != 0 || !holder.inBlock) own.layer = standing.layer;
    own.colour = standing.colour;
    own.colourLayer = own.layer;
    if (standing.colour == colourByBlock) {
      own.colour = holder.colour;
      own.colourLayer = holder.colourLayer;
    }
    if (holder.frozen) own.layer = holder.layer;
    own.frozen = holder.frozen || frozen_[own.layer];
    return own;
  }

  /// What an item costs, against the most of them: a hostile block of few bytes can hold much, many times.
  static std::size_t workOf(const CadShapes& shapes, const CadShape& shape) {
    constexpr std::size_t itemOf = 64;  // points, letters
    const bool isText = shape.kind == SceneItem::Kind::text;
    return 1 + (isText ? shapes.texts[shape.text].text.size() : shape.count) / itemOf;
  }

  void unfold(const CadShapes& shapes, const CadFrame& frame, const Inherited& holder) {
    for (const auto& [kind, count] : shapes.notShown) scene_.notShown[kind] += count;
    for (const CadShape& shape : shapes.shapes) {
      if (isFull()) return;
      steps_ += workOf(shapes, shape);
      add(shapes, shape, frame, inheritedBy(shape.standing, holder));
    }
    for (const BlockInsert& insert : shapes.inserts) {
      if (isFull()) return;
      ++steps_;
      unfoldInsert(insert, frame, inheritedBy(insert.standing, holder));
    }
  }

  void unfoldInsert(const BlockInsert& insert, const CadFrame& frame, Inherited own) {
    own.inBlock = true;
    Block* block = blockOf(insert.block);
    if (!block) ++scene_.notShown["INSERT"];
    if (!block || block->unfolding || depth_ == mostDepth) return;
    block->unfolding = true;
    ++depth_;
    const CadFrame toBase = CadFrame::ofMove(block->base * -1);
    for (int row = 0; row < insert.rows && !isFull(); ++row)
      for (int column = 0; column < insert.columns && !isFull(); ++column) {
        ++steps_;
        CadFrame place = insert.frame;
        place.origin = place.origin + insert.columnStep * column + insert.rowStep * row;
        unfold(block->shapes, frame.of(place).of(toBase), own);
      }
    --depth_;
    block->unfolding = false;
  }

  /// Null when there is none.
  Block* blockOf(const std::string& key) {
    const auto known = blocks_.find(key);
    if (known != blocks_.end()) return &known->second;
    const auto found = file_.blocks().find(key);
    if (found == file_.blocks().end()) return nullptr;
    Block& block = blocks_[key];
    block.base = found->second.base;
    ShapeReader reader(file_, [this](std::string_view name) { return layerIndex(name); });
    if (scene_.points.size() > manyPoints) block.shapes.chordsPerTurn = coarseChords;
    reader.read(found->second.entities, block.shapes, [&] {
      if (block.shapes.points.size() > manyPoints) block.shapes.chordsPerTurn = coarseChords;
    });
    return &block;
  }

  void add(const CadShapes& shapes, const CadShape& shape, const CadFrame& frame, const Inherited& own) {
    const std::size_t first = scene_.points.size();
    SceneItem item{.kind = shape.kind,
                   .first = static_cast<std::uint32_t>(first),
                   .layer = own.layer,
                   .colourLayer = own.colourLayer,
                   .colour = own.colour,
                   .box = {}};
    const bool isText = shape.kind == SceneItem::Kind::text;
    for (std::size_t i = 0; i < (isText ? 1 : shape.count); ++i) {
      const CadPoint point = frame.at(shapes.points[shape.first + i]);
      if (!(std::fabs(point.x) <= farthest && std::fabs(point.y) <= farthest)) return takeBack(first);
      scene_.points.push_back({point.x, point.y});
      scene_.corners.push_back(shapes.corners[shape.first + i]);
    }
    item.count = static_cast<std::uint32_t>(scene_.points.size() - first);
    if (isText && !addText(shapes, shape, frame, item)) return takeBack(first);
    item.box = boxOf(scene_, item);
    const auto isNear = [](double place) { return std::fabs(place) <= farthest; };
    if (!isNear(item.box.left) || !isNear(item.box.right) || !isNear(item.box.bottom) || !isNear(item.box.top)) {
      if (isText) scene_.texts.pop_back();
      return takeBack(first);
    }
    scene_.items.push_back(item);
  }
  bool addText(const CadShapes& shapes, const CadShape& shape, const CadFrame& frame, SceneItem& item) {
    SceneText text = shapes.texts[shape.text];
    try {
      carryText(frame, &shapes.points[shape.first], text);
    } catch (const RuntimeFailure&) {  // seen from its edge
      return false;
    }
    item.text = static_cast<std::uint32_t>(scene_.texts.size());
    scene_.texts.push_back(std::move(text));
    return true;
  }
  void takeBack(std::size_t first) {
    scene_.points.resize(first);
    scene_.corners.resize(first);
  }

  static constexpr std::size_t manyPoints = 2'000'000;
  static constexpr int coarseChords = 64;

  const DxfFile& file_;
  Scene scene_;
  std::vector<bool> frozen_{false};
  std::unordered_map<std::string, std::uint32_t> byKey_{{"0", 0}};
  std::unordered_map<std::string_view, std::uint32_t> byName_;  // as it stands in the file
  std::unordered_map<std::string, Block> blocks_;
  ShapeReader reader_;
  std::size_t steps_ = 0;
  std::size_t depth_ = 0;
};

}  // namespace

Scene sceneOf(const DxfFile& file) { return SceneBuilder{file}.build(); }

}  // namespace noldarz
