// What the entities of a drawing look like, in the coordinates of what holds them, the model space or a block: chains
// of points, texts, and where blocks are inserted.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/cad/chords.h"
#include "platform/cad/entity_records.h"
#include "platform/cad/frame.h"
#include "platform/cad/scene.h"

namespace noldarz {

/// In place of a colour index: that of the insert of the block.
inline constexpr int colourByBlock = 0;

/// Where an entity belongs.
struct ShapeStanding {
  std::uint32_t layer = 0;  ///< index of Scene::layers
  int colour = colourByLayer;
};

struct CadShape {
  SceneItem::Kind kind = SceneItem::Kind::chain;
  std::size_t first = 0;  ///< of its points; a text has three: where it is, and the ends of its width and its height
  std::size_t count = 0;
  std::size_t text = 0;
  ShapeStanding standing;
};

struct BlockInsert {
  std::string block;  ///< in lower case
  CadFrame frame;     ///< of the first one; the base point of the block not yet taken off
  CadPoint columnStep;
  CadPoint rowStep;
  int columns = 1;
  int rows = 1;
  ShapeStanding standing;
};

struct CadShapes {
  std::vector<CadPoint> points;
  std::vector<bool> corners;
  std::vector<CadShape> shapes;
  std::vector<SceneText> texts;
  std::vector<BlockInsert> inserts;
  std::map<std::string, std::size_t> notShown;
  int chordsPerTurn = 180;

  // Chains are built by their points. A corner is an end, or a place where an edge meets the next one.
  void begin(const ShapeStanding& standing, SceneItem::Kind kind = SceneItem::Kind::chain);
  void add(const CadPoint& point, bool corner);
  /// Points of a curve; its last one is a corner.
  void addCurve(const std::vector<CadPoint>& curve);
  void clear();
};

/// Reads entities one by one. Those of paper space and invisible ones are passed over; broken ones and kinds that are
/// not drawn are counted.
class ShapeReader {
 public:
  using LayerIndex = std::function<std::uint32_t(std::string_view)>;

  ShapeReader(const DxfFile& file, LayerIndex layerIndex) : file_(file), layerIndex_(std::move(layerIndex)) {}

  /// All records of the range; after each `done`, which may take what there is.
  void read(DxfRange range, CadShapes& shapes, const std::function<void()>& done);

 private:
  using Read = void (ShapeReader::*)();
  static const std::map<std::string_view, Read>& kinds();
  void readRecord();
  void leaveOut(std::string_view kind) { ++shapes_->notShown[std::string{kind}]; }
  ShapeStanding standing() const;
  CadFrame frame() const { return CadFrame::ofExtrusion(record_.point(210, {0, 0, 1})); }

  void line();
  void point();
  void circle();
  void arc();
  void ellipse();
  void lwPolyline();
  void polyline();
  void mesh();
  void faces(const std::vector<CadPoint>& points);
  void spline();
  void text();
  void attributeText();
  void definitionText();
  void multiText();
  void insert();
  void blockPicture();
  void table();
  void hatch();
  void solid();
  void face();
  void leader();
  void nothing() {}

  void arcOf(double begin, double sweep);
  void outline(const CadFrame& frame, std::initializer_list<int> codes);
  void addText(const CadFrame& at, const SceneText& text);
  BlockInsert insertOf(std::string_view block) const;

  const DxfFile& file_;
  LayerIndex layerIndex_;
  CadShapes* shapes_ = nullptr;
  EntityRecord record_;
  std::vector<EntityRecord> vertices_;  // of a polyline: they come as records of their own
};

/// A block as it is looked up.
std::string blockKey(const DxfFile& file, std::string_view name);

/// A vertex of a polyline in the plane, with what leads to the next one.
struct PlaneVertex {
  CadPoint at;
  double bulge = 0;
};
void addPolyline(CadShapes& shapes, const std::vector<PlaneVertex>& vertices, bool closed, const CadFrame& frame);

/// The boundaries of a hatch. Fails for one that is broken.
void addHatch(CadShapes& shapes, const EntityRecord& record, const ShapeStanding& standing, const CadFrame& frame);

}  // namespace noldarz
