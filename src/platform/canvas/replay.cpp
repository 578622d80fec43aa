#include "platform/canvas/replay.h"

#include <algorithm>
#include <cmath>

namespace noldarz {

void Replay::paint(const Drawing& drawing, Painter& painter) {
  using Kind = Primitive::Kind;
  for (; painted_ < drawing.primitives.size(); ++painted_) {
    const Primitive& next = drawing.primitives[painted_];
    if (next.kind != Kind::Line) endStroke(painter);
    const Point at{next.x1, next.y1};
    const auto value = static_cast<int>(next.x1);
    switch (next.kind) {
      case Kind::Cls: current_ = {}; break;
      case Kind::PSet:
        painter.dot(at, next.colour);
        current_ = at;
        break;
      case Kind::Line: line(next, painter); break;
      case Kind::Circle:
        painter.circle(at, next.x2, {next.colour, width_});
        current_ = at;
        break;
      case Kind::Print: print(drawing.textOf(next), painter); break;
      case Kind::DrawWidth: width_ = value; break;
      case Kind::FontBold: bold_ = value != 0; break;
      case Kind::FontTransparent: transparent_ = value != 0; break;
    }
  }
  endStroke(painter);
}

void Replay::line(const Primitive& line, Painter& painter) {
  const Point from{line.x1, line.y1};
  const Point to{line.x2, line.y2};
  if (stroke_.empty() || strokeEnd_ != from || strokeColour_ != line.colour) {
    endStroke(painter);
    stroke_.push_back(from);
    strokeColour_ = line.colour;
  }
  const Point& kept = stroke_.back();
  if (std::hypot(to.x - kept.x, to.y - kept.y) >= tolerance_) stroke_.push_back(to);
  strokeEnd_ = current_ = to;
}

void Replay::endStroke(Painter& painter) {
  if (stroke_.empty()) return;
  if (stroke_.size() == 1 || stroke_.back() != strokeEnd_) stroke_.push_back(strokeEnd_);
  painter.polyline(stroke_, {strokeColour_, width_});
  stroke_.clear();
}

void Replay::print(std::string_view text, Painter& painter) {
  for (bool more = true; more;) {
    const auto end = std::min(text.find('\n'), text.size());
    painter.text(current_, text.substr(0, end), bold_, transparent_);
    current_ = {0, current_.y + textLine};
    more = end < text.size();
    text.remove_prefix(more ? end + 1 : end);
  }
}

}  // namespace noldarz
