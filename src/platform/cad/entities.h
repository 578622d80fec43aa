// What was added to a drawing: lines, circles, texts and splines, in the order in which they came.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/cad/drawing.h"
#include "platform/cad/spline.h"

namespace noldarz {

/// The colour of the layer, in place of a colour index.
inline constexpr int colourByLayer = 256;

struct AddedLine {
  CadPoint start;
  CadPoint end;
};
struct AddedCircle {
  CadPoint centre;
  double radius = 0;
};
struct AddedText {
  std::string text;  ///< one line
  CadPoint at;       ///< its lower left corner
  double height = 0;
  double angle = 0;  ///< radians
};
struct AddedSpline {
  Spline curve;
  std::vector<CadPoint> fit;  ///< as passed, with deletions and changes, before it was turned
  double turned = 0;          ///< radians
};

struct AddedEntity {
  std::string layer;
  int colour = colourByLayer;
  std::variant<AddedLine, AddedCircle, AddedText, AddedSpline> shape;
};

}  // namespace noldarz
