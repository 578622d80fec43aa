// What was added to a drawing as items of its scene, and the boxes of items.
#include <algorithm>
#include <cmath>

#include "platform/cad/chords.h"
#include "platform/cad/dxf_text.h"
#include "platform/cad/plain_text.h"
#include "platform/cad/scene.h"

namespace noldarz {

namespace {

std::uint32_t layerOf(Scene& scene, const std::string& name) {
  const std::string key = lowerCase(name);
  const auto found = std::find_if(
      scene.layers.begin(), scene.layers.end(), [&](const SceneLayer& layer) { return lowerCase(layer.name) == key; });
  const auto index = static_cast<std::uint32_t>(found - scene.layers.begin());
  if (found == scene.layers.end()) scene.layers.push_back({.name = name});
  return index;
}

struct Shown {
  std::vector<CadPoint> points;
  bool corners = false;
};

Shown shown(const AddedLine& line) { return {{line.start, line.end}, true}; }
Shown shown(const AddedCircle& circle) {
  constexpr int perTurn = 360;
  return {chordsOf(EllipseArc{circle.centre, {circle.radius, 0, 0}, {0, circle.radius, 0}}, perTurn)};
}
Shown shown(const AddedSpline& spline) {
  constexpr int each = 24;  // chords of a stretch between two knots
  return {spline.curve.points(each)};
}
Shown shown(const AddedText& text) { return {{text.at}}; }

SceneBox around(const std::vector<ScenePoint>& points, std::size_t first, std::size_t count) {
  SceneBox box{points[first].x, points[first].y, points[first].x, points[first].y};
  for (std::size_t i = first + 1; i < first + count; ++i)
    box.take({points[i].x, points[i].y, points[i].x, points[i].y});
  return box;
}

SceneBox around(const ScenePoint& at, const SceneText& text) {
  const double width = text.height * text.stretch * static_cast<double>(lettersOf(text.text));
  const double below = text.height / 3;
  const double cosine = std::cos(text.angle);
  const double sine = std::sin(text.angle);
  std::vector<ScenePoint> corners;
  for (const double across : {-text.across * width, (1 - text.across) * width})
    for (const double up : {-text.up * text.height - below, (1 - text.up) * text.height + below})
      corners.push_back({at.x + across * cosine - up * sine, at.y + across * sine + up * cosine});
  return around(corners, 0, corners.size());
}

}  // namespace

void SceneBox::take(const SceneBox& other) {
  left = std::min(left, other.left);
  bottom = std::min(bottom, other.bottom);
  right = std::max(right, other.right);
  top = std::max(top, other.top);
}

SceneBox boxOf(const Scene& scene, const SceneItem& item) {
  return item.kind == SceneItem::Kind::text ? around(scene.points[item.first], scene.texts[item.text])
                                            : around(scene.points, item.first, item.count);
}

void addToScene(Scene& scene, const AddedEntity& entity) {
  const Shown added = std::visit([](const auto& shape) { return shown(shape); }, entity.shape);
  const std::uint32_t layer = layerOf(scene, entity.layer);
  SceneItem item{.first = static_cast<std::uint32_t>(scene.points.size()),
                 .count = static_cast<std::uint32_t>(added.points.size()),
                 .layer = layer,
                 .colourLayer = layer,
                 .colour = entity.colour,
                 .box = {}};
  for (const CadPoint& point : added.points) scene.points.push_back({point.x, point.y});
  scene.corners.resize(scene.points.size(), added.corners);
  if (const auto* text = std::get_if<AddedText>(&entity.shape)) {
    item.kind = SceneItem::Kind::text;
    item.text = static_cast<std::uint32_t>(scene.texts.size());
    scene.texts.push_back({.text = text->text, .height = text->height, .angle = text->angle});
  }
  item.box = boxOf(scene, item);
  scene.items.push_back(item);
}

void setSceneLayer(Scene& scene, const std::string& name, int colour) {
  scene.layers[layerOf(scene, name)].colour = colour;
}

std::optional<SceneBox> boundsOf(const Scene& scene) {
  std::optional<SceneBox> bounds;
  for (const SceneItem& item : scene.items) {
    if (!scene.layers[item.layer].visible) continue;
    bounds ? bounds->take(item.box) : void(bounds = item.box);
  }
  return bounds;
}

}  // namespace noldarz
