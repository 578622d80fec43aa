// Texts of one line and of many.
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/cad/entity_shapes.h"
#include "platform/cad/plain_text.h"

namespace noldarz {

namespace {

/// A text has its width, height and place in the codes of its alignment: 72 across, 73 up.
constexpr std::array<double, 6> acrossOf{0, 0.5, 1, 0, 0.5, 0};
constexpr std::array<double, 4> upOf{0, 0, 0.5, 1};
constexpr int alignedText = 3;
constexpr int middleText = 4;
constexpr int fittedText = 5;

}  // namespace

void ShapeReader::addText(const CadFrame& at, const SceneText& text) {
  if (text.text.empty() || !(text.height > 0) || !(text.stretch > 0)) return;
  shapes_->begin(standing(), SceneItem::Kind::text);
  shapes_->shapes.back().text = shapes_->texts.size();
  for (const CadPoint& point : {CadPoint{}, CadPoint{text.height, 0, 0}, CadPoint{0, text.height, 0}})
    shapes_->add(at.at(point), false);
  shapes_->texts.push_back(text);
}

void ShapeReader::text() {
  const int across = std::clamp(record_.integer(72, 0), 0, fittedText);
  const int up = std::clamp(record_.integer(record_.kind == "TEXT" ? 73 : 74, 0), 0, 3);
  const bool between = across == alignedText || across == fittedText;
  const CadPoint first = record_.point(10);
  const CadPoint second = record_.point(11, first);
  double angle = record_.number(50, 0) * radiansPerDegree;
  if (between) angle = std::atan2(second.y - first.y, second.x - first.x);
  const bool byFirst = between || (across == 0 && up == 0);
  SceneText text{.text = plainLine(file_.decoded(record_.find(1) ? record_.find(1)->value : "")),
                 .height = record_.number(40),
                 .stretch = record_.number(41, 1),
                 .across = acrossOf.at(static_cast<std::size_t>(across)),
                 .up = across == middleText ? 0.5 : upOf.at(static_cast<std::size_t>(up))};
  addText(frame().of(CadFrame::ofMove(byFirst ? first : second)).of(CadFrame::ofTurn(angle)), text);
}

void ShapeReader::multiText() {
  constexpr double lineSpacing = 5. / 3;  // heights
  constexpr double letterWidth = 0.7;     // heights, about
  std::string whole;
  for (const DxfTag& tag : record_.tags)
    if (tag.code == 3 || tag.code == 1) whole += tag.value;
  const double height = record_.number(40);
  const double width = record_.number(41, 0);
  if (!(height > 0)) fail(FailureNumber::invalidArgument);
  const double letters = std::min(width / (letterWidth * height), 1e6);
  const auto lines = plainLines(file_.decoded(whole), letters >= 1 ? static_cast<std::size_t>(letters) : 0);
  const int place = std::clamp(record_.integer(71, 1), 1, 9) - 1;  // three rows of three
  const std::array<double, 3> parts{0, 0.5, 1};
  const double below = parts.at(static_cast<std::size_t>(place / 3));
  const double across = parts.at(static_cast<std::size_t>(place % 3));
  const double spacing = height * lineSpacing * record_.number(44, 1);
  const CadFrame plane = frame();
  CadFrame stance = plane.of(CadFrame::ofTurn(record_.number(50, 0) * radiansPerDegree));
  if (record_.find(11)) {
    stance.x = direction(record_.point(11));
    stance.y = cross(plane.z, stance.x);
  }
  stance.origin = record_.point(10);
  double top = (spacing * static_cast<double>(lines.size() - 1) + height) * below;
  for (const std::string& line : lines) {
    addText(stance.of(CadFrame::ofMove({0, top, 0})), {.text = line, .height = height, .across = across, .up = 1});
    top -= spacing;
  }
}

}  // namespace noldarz
