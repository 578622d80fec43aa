#include "platform/cad/entity_shapes.h"

#include <algorithm>
#include <cmath>

#include "platform/cad/dxf_text.h"

namespace noldarz {

namespace {

/// Attributes and definitions whose text nobody sees.
constexpr int invisibleAttribute = 1;
constexpr int constantAttribute = 2;

std::vector<double> numbersOf(const EntityRecord& record, int code) {
  std::vector<double> numbers;
  for (const DxfTag& tag : record.tags)
    if (tag.code == code) numbers.push_back(cadNumber(tag));
  return numbers;
}

/// The points of a code that comes again and again.
std::vector<CadPoint> pointsOf(const EntityRecord& record, int code) {
  const auto x = numbersOf(record, code);
  const auto y = numbersOf(record, code + 10);
  const auto z = numbersOf(record, code + 20);
  if (y.size() != x.size() || (!z.empty() && z.size() != x.size())) fail(FailureNumber::typeMismatch);
  std::vector<CadPoint> points;
  for (std::size_t i = 0; i < x.size(); ++i) points.push_back({x[i], y[i], z.empty() ? 0 : z[i]});
  return points;
}

}  // namespace

void CadShapes::begin(const ShapeStanding& standing, SceneItem::Kind kind) {
  shapes.push_back({kind, points.size(), 0, 0, standing});
}

void CadShapes::add(const CadPoint& point, bool corner) {
  points.push_back(point);
  corners.push_back(corner);
  ++shapes.back().count;
}

void CadShapes::addCurve(const std::vector<CadPoint>& curve) {
  for (const CadPoint& point : curve) add(point, &point == &curve.back());
}

void CadShapes::clear() {
  points.clear();
  corners.clear();
  shapes.clear();
  texts.clear();
  inserts.clear();
  notShown.clear();
}

std::string blockKey(const DxfFile& file, std::string_view name) { return lowerCase(file.decoded(name)); }

const std::map<std::string_view, ShapeReader::Read>& ShapeReader::kinds() {
  using Reader = ShapeReader;
  static const std::map<std::string_view, Read> kinds{{"LINE", &Reader::line},
                                                      {"POINT", &Reader::point},
                                                      {"CIRCLE", &Reader::circle},
                                                      {"ARC", &Reader::arc},
                                                      {"ELLIPSE", &Reader::ellipse},
                                                      {"LWPOLYLINE", &Reader::lwPolyline},
                                                      {"POLYLINE", &Reader::polyline},
                                                      {"SPLINE", &Reader::spline},
                                                      {"TEXT", &Reader::text},
                                                      {"ATTRIB", &Reader::attributeText},
                                                      {"ATTDEF", &Reader::definitionText},
                                                      {"MTEXT", &Reader::multiText},
                                                      {"INSERT", &Reader::insert},
                                                      {"DIMENSION", &Reader::blockPicture},
                                                      {"ACAD_TABLE", &Reader::table},
                                                      {"HATCH", &Reader::hatch},
                                                      {"SOLID", &Reader::solid},
                                                      {"TRACE", &Reader::solid},
                                                      {"3DFACE", &Reader::face},
                                                      {"LEADER", &Reader::leader},
                                                      {"SEQEND", &Reader::nothing},
                                                      {"VERTEX", &Reader::nothing},
                                                      {"VIEWPORT", &Reader::nothing}};
  return kinds;
}

void ShapeReader::read(DxfRange range, CadShapes& shapes, const std::function<void()>& done) {
  shapes_ = &shapes;
  EntityRecords records(file_.bytes(), range);
  EntityRecord ahead;
  bool more = records.next(ahead);
  while (more) {
    std::swap(record_, ahead);
    vertices_.clear();
    more = records.next(ahead);
    for (; record_.kind == "POLYLINE" && more && ahead.kind == "VERTEX"; more = records.next(ahead))
      vertices_.push_back(ahead);
    readRecord();
    done();
  }
}

void ShapeReader::readRecord() {
  const CadShapes& before = *shapes_;
  const auto shapes = static_cast<std::ptrdiff_t>(before.shapes.size());
  const auto points = static_cast<std::ptrdiff_t>(before.points.size());
  try {
    if (record_.integer(67, 0) == 1 || record_.integer(60, 0) == 1) return;
    const auto found = kinds().find(record_.kind);
    found == kinds().end() ? leaveOut(record_.kind) : (this->*found->second)();
  } catch (const RuntimeFailure&) {  // broken
    leaveOut(record_.kind);
    shapes_->shapes.erase(shapes_->shapes.begin() + shapes, shapes_->shapes.end());
    shapes_->points.erase(shapes_->points.begin() + points, shapes_->points.end());
    shapes_->corners.resize(shapes_->points.size());
  }
}

ShapeStanding ShapeReader::standing() const {
  const int colour = record_.integer(62, colourByLayer);
  const bool isIndex = colour >= colourByBlock && colour <= colourByLayer;
  if (const DxfTag* exact = record_.find(420); exact && colour != colourByBlock)
    return {layerIndex_(record_.word(8)), trueColour + (cadInteger(*exact) & 0xFFFFFF)};
  return {layerIndex_(record_.word(8)), isIndex ? colour : colourByLayer};
}

void ShapeReader::line() {
  const CadPoint start = record_.point(10);
  const CadPoint end = record_.point(11);
  shapes_->begin(standing());
  shapes_->add(start, true);
  shapes_->add(end, true);
}

void ShapeReader::point() {
  const CadPoint at = record_.point(10);
  shapes_->begin(standing(), SceneItem::Kind::point);
  shapes_->add(at, true);
}

void ShapeReader::arcOf(double begin, double sweep) {
  const CadFrame to = frame();
  const double radius = record_.number(40);
  const EllipseArc arc{to.at(record_.point(10)), to.x * radius, to.y * radius, begin, sweep};
  const bool open = sweep < fullTurn;
  shapes_->begin(standing());
  shapes_->addCurve(chordsOf(arc, shapes_->chordsPerTurn));
  shapes_->corners.back() = open;
  shapes_->corners[shapes_->shapes.back().first] = open;
}

void ShapeReader::circle() { arcOf(0, fullTurn); }

void ShapeReader::arc() {
  const double begin = record_.number(50) * radiansPerDegree;
  arcOf(begin, sweepBetween(begin, record_.number(51) * radiansPerDegree));
}

void ShapeReader::ellipse() {
  const CadPoint across = record_.point(11);
  const CadPoint normal = direction(record_.point(210, {0, 0, 1}));
  const double begin = record_.number(41, 0);
  const EllipseArc arc{record_.point(10),
                       across,
                       cross(normal, across) * record_.number(40),
                       begin,
                       sweepBetween(begin, record_.number(42, fullTurn))};
  shapes_->begin(standing());
  shapes_->addCurve(chordsOf(arc, shapes_->chordsPerTurn));
  const bool open = arc.sweep < fullTurn - 1e-6;
  shapes_->corners.back() = open;
  shapes_->corners[shapes_->shapes.back().first] = open;
}

void ShapeReader::spline() {
  RationalSpline curve{record_.integer(71, 3), numbersOf(record_, 40), pointsOf(record_, 10), numbersOf(record_, 41)};
  const auto points = curve.control.empty() ? Spline{pointsOf(record_, 11)}.points(16) : chordsOf(curve);
  shapes_->begin(standing());
  shapes_->addCurve(points);
  shapes_->corners[shapes_->shapes.back().first] = true;
}

void ShapeReader::outline(const CadFrame& frame, std::initializer_list<int> codes) {
  shapes_->begin(standing());
  for (const int code : codes) shapes_->add(frame.at(record_.point(code)), true);
}

void ShapeReader::solid() {
  const CadFrame to = frame();
  record_.find(13) ? outline(to, {10, 11, 13, 12, 10}) : outline(to, {10, 11, 12, 10});
}

void ShapeReader::face() { record_.find(13) ? outline({}, {10, 11, 12, 13, 10}) : outline({}, {10, 11, 12, 10}); }

void ShapeReader::leader() {
  shapes_->begin(standing());
  for (const CadPoint& point : pointsOf(record_, 10)) shapes_->add(point, true);
}

BlockInsert ShapeReader::insertOf(std::string_view block) const {
  if (block.empty()) fail(FailureNumber::typeMismatch);
  return {.block = blockKey(file_, block), .frame = {}, .columnStep = {}, .rowStep = {}, .standing = standing()};
}

void ShapeReader::insert() {
  BlockInsert insert = insertOf(record_.word(2));
  const CadFrame stance =
      frame().of(CadFrame::ofMove(record_.point(10))).of(CadFrame::ofTurn(record_.number(50, 0) * radiansPerDegree));
  insert.frame = stance.of(CadFrame::ofScale(record_.number(41, 1), record_.number(42, 1), record_.number(43, 1)));
  insert.columnStep = stance.x * record_.number(44, 0);
  insert.rowStep = stance.y * record_.number(45, 0);
  insert.columns = std::max(1, record_.integer(70, 1));
  insert.rows = std::max(1, record_.integer(71, 1));
  shapes_->inserts.push_back(std::move(insert));
}

void ShapeReader::blockPicture() { shapes_->inserts.push_back(insertOf(record_.word(2))); }

void ShapeReader::table() {
  BlockInsert insert = insertOf(record_.word(2));
  const CadPoint along = record_.point(11, {1, 0, 0});
  insert.frame = CadFrame::ofMove(record_.point(10)).of(CadFrame::ofTurn(std::atan2(along.y, along.x)));
  shapes_->inserts.push_back(std::move(insert));
}

void ShapeReader::hatch() { addHatch(*shapes_, record_, standing(), frame()); }

void ShapeReader::attributeText() {
  if ((record_.integer(70, 0) & invisibleAttribute) == 0) text();
}

void ShapeReader::definitionText() {
  if ((record_.integer(70, 0) & constantAttribute) != 0) attributeText();
}

}  // namespace noldarz
