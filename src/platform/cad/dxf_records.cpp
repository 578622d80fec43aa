#include "platform/cad/dxf_records.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace noldarz {

namespace {

constexpr int chordsPerStretch = 10;

/// The shortest text that reads back as the same number.
std::string numberText(double value) {
  if (!std::isfinite(value)) throw CadFailure("A place or length is out of range.");
  std::string text = fmt::format("{}", value);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

/// Whether the points lie at one height, but for what rounding has made of it.
bool isFlat(const std::vector<CadPoint>& points) {
  const double height = points.front().z;
  const double tolerance = 1e-12 * std::fabs(height);
  return std::all_of(
      points.begin(), points.end(), [&](const CadPoint& p) { return std::fabs(p.z - height) <= tolerance; });
}

/// Whether the last point is the first one, but for what rounding has made of it.
bool isRing(const std::vector<CadPoint>& points) {
  const auto away = [&](const CadPoint& p) {
    return std::hypot(p.x - points.front().x, p.y - points.front().y, p.z - points.front().z);
  };
  double extent = 0;
  for (const CadPoint& point : points) extent = std::max(extent, away(point));
  return away(points.back()) <= 1e-9 * extent;
}

/// The value of the first tag of that group in the record; empty when there is none.
std::string_view valueIn(const DxfFile& file, DxfRange record, int code) {
  DxfTags tags{file.bytes(), record.begin, record.end};
  for (DxfTag tag; tags.next(tag);)
    if (tag.code == code) return tag.word();
  return {};
}

}  // namespace

DxfRecords::DxfRecords(const DxfFile& file)
    : file_(file),
      version_(file.version()),
      inUtf8_(file.isInUtf8()),
      lineEnd_(file.lineEnd()),
      next_(file.places().nextHandle),
      layerTable_(file.places().layerTable) {
  if (version_ < DxfVersion::R2000) return;
  constexpr int plotStyle = 390;
  constexpr int material = 347;
  plotStyle_ = ofAnyLayer(plotStyle);
  material_ = ofAnyLayer(material);
}

/// The value in layer 0, else in the first layer that has one.
std::string_view DxfRecords::ofAnyLayer(int code) const {
  if (const DxfLayer* zero = file_.layer("0"))
    if (const auto value = valueIn(file_, zero->tags, code); !value.empty()) return value;
  for (const DxfLayer& layer : file_.layers())
    if (const auto value = valueIn(file_, layer.tags, code); !value.empty()) return value;
  return {};
}

void DxfRecords::tag(int code, std::string_view value) {
  fmt::format_to(std::back_inserter(text_), "{:3}{}{}{}", code, lineEnd_, value, lineEnd_);
}

void DxfRecords::number(int code, double value) { tag(code, numberText(value)); }

void DxfRecords::point(int code, const CadPoint& point) {
  number(code, point.x);
  number(code + 10, point.y);
  number(code + 20, point.z);
}

std::string DxfRecords::nextHandle() const { return fmt::format("{:X}", next_); }

std::string DxfRecords::handle() {
  if (next_ == 0)
    throw CadFailure(
        "The drawing has no handles left for what is new. Save it again in your CAD, which numbers it anew.");
  std::string given = nextHandle();
  ++next_;
  return given;
}

void DxfRecords::owned(std::string_view kind, bool withHandle, std::string_view owner) {
  tag(0, kind);
  if (withHandle) tag(5, handle());
  if (version_ >= DxfVersion::R2000 && !owner.empty()) tag(330, owner);
}

void DxfRecords::beginSection(std::string_view name) {
  tag(0, "SECTION");
  tag(2, name);
}

void DxfRecords::beginLayerTable(std::size_t layers) {
  tag(0, "TABLE");
  tag(2, "LAYER");
  if (version_ >= DxfVersion::R13) {
    layerTable_ = handle();
    tag(5, layerTable_);
    if (version_ >= DxfVersion::R2000) tag(330, "0");
    tag(100, "AcDbSymbolTable");
  }
  tag(70, std::to_string(layers));
}

void DxfRecords::add(const ChangedLayer& layer) {
  owned("LAYER", file_.places().layerHandles, layerTable_);
  if (version_ >= DxfVersion::R13) {
    tag(100, "AcDbSymbolTableRecord");
    tag(100, "AcDbLayerTableRecord");
  }
  tag(2, asDxfText(layer.name, inUtf8_));
  tag(70, 0);
  tag(62, layer.colour);
  tag(6, version_ >= DxfVersion::R13 ? "Continuous" : "CONTINUOUS");
  if (!plotStyle_.empty()) tag(390, plotStyle_);
  if (!material_.empty()) tag(347, material_);
}

void DxfRecords::add(const AddedEntity& entity) {
  std::visit([&](const auto& what) { shape(entity, what); }, entity.shape);
}

/// A layer of the file is named as it is there, whatever the code page.
std::string_view DxfRecords::nameOfLayer(const std::string& name) {
  const auto [known, isNew] = layerNames_.try_emplace(name);
  if (isNew) {
    const DxfLayer* old = file_.layer(name);
    known->second = old ? std::string{valueIn(file_, old->tags, 2)} : asDxfText(name, inUtf8_);
  }
  return known->second;
}

void DxfRecords::begin(std::string_view kind, const AddedEntity& entity, std::string_view subclass) {
  owned(kind, file_.places().handles, file_.places().modelSpace);
  if (version_ >= DxfVersion::R13) tag(100, "AcDbEntity");
  tag(8, nameOfLayer(entity.layer));
  if (entity.colour != colourByLayer) tag(62, entity.colour);
  if (version_ >= DxfVersion::R13) tag(100, subclass);
}

void DxfRecords::shape(const AddedEntity& entity, const AddedLine& line) {
  begin("LINE", entity, "AcDbLine");
  point(10, line.start);
  point(11, line.end);
}

void DxfRecords::shape(const AddedEntity& entity, const AddedCircle& circle) {
  begin("CIRCLE", entity, "AcDbCircle");
  point(10, circle.centre);
  number(40, circle.radius);
}

void DxfRecords::shape(const AddedEntity& entity, const AddedText& text) {
  begin("TEXT", entity, "AcDbText");
  point(10, text.at);
  number(40, text.height);
  tag(1, asDxfText(text.text, inUtf8_));
  if (text.angle != 0) number(50, text.angle * 180 / std::numbers::pi);
  if (version_ >= DxfVersion::R13) tag(100, "AcDbText");  // what follows it there is how the text is aligned
}

void DxfRecords::shape(const AddedEntity& entity, const AddedSpline& spline) {
  const Spline& curve = spline.curve;
  if (version_ < DxfVersion::R13) return chords(entity, curve);
  constexpr int planar = 8;
  const bool flat = isFlat(curve.control());
  begin("SPLINE", entity, "AcDbSpline");
  if (flat) point(210, {0, 0, 1});
  tag(70, flat ? planar : 0);
  tag(71, Spline::degree);
  tag(72, std::to_string(curve.knots().size()));
  tag(73, std::to_string(curve.control().size()));
  tag(74, 0);
  for (const double knot : curve.knots()) number(40, knot);
  for (const CadPoint& control : curve.control()) point(10, control);
}

/// R12 has no curves: a chain of chords.
void DxfRecords::chords(const AddedEntity& entity, const Spline& curve) {
  constexpr int closed = 1, inSpace = 8, vertexInSpace = 32;
  std::vector<CadPoint> points = curve.points(chordsPerStretch);
  const bool isClosed = isRing(points);
  if (isClosed) points.pop_back();
  const double height = curve.control().front().z;
  const bool flat = isFlat(curve.control());
  begin("POLYLINE", entity, "");
  tag(66, 1);
  point(10, {0, 0, flat ? height : 0});
  tag(70, (isClosed ? closed : 0) + (flat ? 0 : inSpace));
  for (const CadPoint& vertex : points) {
    begin("VERTEX", entity, "");
    point(10, {vertex.x, vertex.y, flat ? height : vertex.z});
    if (!flat) tag(70, vertexInSpace);
  }
  begin("SEQEND", entity, "");
}

}  // namespace noldarz
