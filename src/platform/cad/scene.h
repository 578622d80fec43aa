// What a drawing looks like from above: its entities as lines and texts in the plane, blocks unfolded, curves as
// chords. Built once per drawing for who paints it; what is added to the drawing is added to the scene.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/cad/dxf_file.h"
#include "platform/cad/entities.h"

namespace noldarz {

struct ScenePoint {
  double x = 0;
  double y = 0;

  bool operator==(const ScenePoint&) const = default;
};

struct SceneBox {
  double left = 0, bottom = 0, right = 0, top = 0;

  bool meets(const SceneBox& other) const {
    return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
  }
  /// Makes it hold the other one too.
  void take(const SceneBox& other);
};

/// A colour beyond the indices: this, and 0xRRGGBB in the bits below.
inline constexpr int trueColour = 1 << 24;

/// A chain of points, a point, or a text at a point.
struct SceneItem {
  enum class Kind : std::uint8_t { chain, point, text };
  Kind kind = Kind::chain;
  std::uint32_t first = 0;  ///< of its points
  std::uint32_t count = 0;
  std::uint32_t text = 0;         ///< of a text: which one
  std::uint32_t layer = 0;        ///< index of Scene::layers
  std::uint32_t colourLayer = 0;  ///< the layer whose colour it takes; in a block it may be that of the insert
  int colour = 7;                 ///< a colour index 1 to 255; 256: of the layer; or from trueColour on
  SceneBox box;                   ///< of a text: about
};

/// One line, at least as tall as 0.
struct SceneText {
  std::string text;    ///< UTF-8
  double height = 0;   ///< of a capital
  double angle = 0;    ///< radians
  double stretch = 1;  ///< of its width
  double across = 0;   ///< where its point lies: 0 left, 1 right
  double up = 0;       ///< 0 on the base line, 1 at the top of a capital
};

struct SceneLayer {
  std::string name;
  int colour = 7;
  bool visible = true;
};

struct Scene {
  std::vector<ScenePoint> points;
  std::vector<bool> corners;  ///< of each point, whether it is an end or a corner, not a place on a curve
  std::vector<SceneItem> items;
  std::vector<SceneText> texts;
  std::vector<SceneLayer> layers;               ///< the layer 0 first
  std::map<std::string, std::size_t> notShown;  ///< kinds of entities that are not drawn, and how many there are
  bool isWhole = true;                          ///< false: it has more items than a scene takes

  static constexpr std::size_t mostItems = 5'000'000;
  static constexpr std::size_t mostPoints = 50'000'000;
};

/// The scene of a drawing as read. Broken entities are left out and counted; blocks that hold themselves end there.
Scene sceneOf(const DxfFile& file);
/// Adds what was added to the drawing since.
void addToScene(Scene& scene, const AddedEntity& entity);
/// The layer of the name, whatever the case of its letters A to Z; made when there is none. Its colour is set.
void setSceneLayer(Scene& scene, const std::string& name, int colour);
/// Of the points of an item; of a text about the room that it takes.
SceneBox boxOf(const Scene& scene, const SceneItem& item);
/// The box of the items on visible layers; nothing when there are none.
std::optional<SceneBox> boundsOf(const Scene& scene);

/// 0xRRGGBB of an index 1 to 255. That of 7 is white; who paints takes what stands out from the ground.
std::uint32_t colourOfIndex(int index);

}  // namespace noldarz
