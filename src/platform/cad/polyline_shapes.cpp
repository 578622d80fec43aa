// Polylines: in the plane with arcs, in space, and the edges of meshes.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/cad/entity_shapes.h"

namespace noldarz {

namespace {

// Of a polyline, code 70.
constexpr int closedFlag = 1;
constexpr int splineFlag = 4;
constexpr int inSpaceFlag = 8;
constexpr int meshFlag = 16;
constexpr int closedAcrossFlag = 32;
constexpr int facesFlag = 64;
// Of a vertex.
constexpr int frameOfSplineFlag = 16;
constexpr int meshVertexFlag = 64;
constexpr int faceFlag = 128;

}  // namespace

void addPolyline(CadShapes& shapes, const std::vector<PlaneVertex>& vertices, bool closed, const CadFrame& frame) {
  if (vertices.empty()) fail(FailureNumber::invalidArgument);
  shapes.add(frame.at(vertices[0].at), true);
  for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i) {
    const PlaneVertex& next = vertices[(i + 1) % vertices.size()];
    auto chords = bulgeChords(vertices[i].at, next.at, vertices[i].bulge, shapes.chordsPerTurn);
    for (CadPoint& point : chords) point = frame.at(point);
    shapes.addCurve(chords);
  }
}

void ShapeReader::lwPolyline() {
  const double elevation = record_.number(38, 0);
  std::vector<PlaneVertex> vertices;
  for (const DxfTag& tag : record_.tags) {
    if (tag.code == 10) vertices.push_back({{cadNumber(tag), 0, elevation}});
    if (vertices.empty()) continue;
    if (tag.code == 20) vertices.back().at.y = cadNumber(tag);
    if (tag.code == 42) vertices.back().bulge = cadNumber(tag);
  }
  shapes_->begin(standing());
  addPolyline(*shapes_, vertices, (record_.integer(70, 0) & closedFlag) != 0, frame());
}

void ShapeReader::polyline() {
  const int flags = record_.integer(70, 0);
  if ((flags & (meshFlag | facesFlag)) != 0) return mesh();
  const bool inSpace = (flags & inSpaceFlag) != 0;
  const double elevation = record_.number(30, 0);
  std::vector<PlaneVertex> vertices;
  for (const EntityRecord& vertex : vertices_) {
    if ((vertex.integer(70, 0) & frameOfSplineFlag) != 0) continue;
    CadPoint at = vertex.point(10);
    if (!inSpace) at.z = elevation;
    vertices.push_back({at, inSpace ? 0 : vertex.number(42, 0)});
  }
  shapes_->begin(standing());
  addPolyline(*shapes_, vertices, (flags & closedFlag) != 0, inSpace ? CadFrame{} : frame());
}

void ShapeReader::mesh() {
  const int flags = record_.integer(70, 0);
  std::vector<CadPoint> grid;
  for (const EntityRecord& vertex : vertices_)
    if ((vertex.integer(70, 0) & meshVertexFlag) != 0 && (vertex.integer(70, 0) & frameOfSplineFlag) == 0)
      grid.push_back(vertex.point(10));
  if ((flags & facesFlag) != 0) return faces(grid);
  const bool smooth = (flags & splineFlag) != 0;
  const int across = record_.integer(smooth ? 73 : 71, 0);
  const int up = record_.integer(smooth ? 74 : 72, 0);
  if (across < 1 || up < 1 || static_cast<std::size_t>(across) * static_cast<std::size_t>(up) != grid.size())
    fail(FailureNumber::invalidArgument);
  const auto chain = [&](int count, bool closed, auto&& place) {
    shapes_->begin(standing());
    for (int i = 0; i < count + (closed ? 1 : 0); ++i)
      shapes_->add(grid[static_cast<std::size_t>(place(i % count))], true);
  };
  for (int row = 0; row < across; ++row)
    chain(up, (flags & closedAcrossFlag) != 0, [&](int i) { return row * up + i; });
  for (int column = 0; column < up; ++column)
    chain(across, (flags & closedFlag) != 0, [&](int i) { return i * up + column; });
}

void ShapeReader::faces(const std::vector<CadPoint>& points) {
  for (const EntityRecord& vertex : vertices_) {
    const int flags = vertex.integer(70, 0);
    if ((flags & faceFlag) == 0 || (flags & meshVertexFlag) != 0) continue;
    std::vector<std::size_t> corners;
    for (const int code : {71, 72, 73, 74})
      if (const int place = vertex.integer(code, 0); place != 0)  // below 0: an edge that is not seen
        corners.push_back(static_cast<std::size_t>(std::abs(place)) - 1);
    if (corners.empty()) continue;
    corners.push_back(corners.front());
    shapes_->begin(standing());
    for (const std::size_t corner : corners) {
      if (corner >= points.size()) fail(FailureNumber::invalidArgument);
      shapes_->add(points[corner], true);
    }
  }
}

}  // namespace noldarz
