#include "platform/canvas/canvas.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"

namespace noldarz {

using Kind = Primitive::Kind;

Canvas::Canvas(Field& field) : field_(field) { field.setCanvas(*this); }

void Canvas::add(const Primitive& primitive, double x, double y) {
  drawing_.primitives.push_back(primitive);
  x_ = x;
  y_ = y;
}

void Canvas::Cls() {
  drawing_.texts.clear();
  drawing_.primitives = {{Kind::Cls}};
  for (const Primitive* kept : {&width_, &bold_, &transparent_})  // the width and the font stay as they were set
    if (kept->x1 != (kept == &bold_ ? 0 : 1)) drawing_.primitives.push_back(*kept);
  x_ = y_ = 0;
  changed();
}

void Canvas::PSet(double x, double y, Colour colour) { add({Kind::PSet, colour, checked(x), checked(y)}, x, y); }

void Canvas::Line(double x1, double y1, double x2, double y2, Colour colour) {
  add({Kind::Line, colour, checked(x1), checked(y1), checked(x2), checked(y2)}, x2, y2);
}

void Canvas::Circle(double x, double y, double radius, Colour colour) {
  if (!(radius >= 0)) fail(FailureNumber::invalidArgument);
  add({Kind::Circle, colour, checked(x), checked(y), checked(radius)}, x, y);
}

void Canvas::Print(std::string_view text) {
  const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
  drawing_.texts.emplace_back(text);
  Primitive print{Kind::Print};
  print.text = drawing_.texts.size() - 1;
  add(print, 0, y_ + static_cast<double>(lines) * textLine);
}

void Canvas::setDrawWidth(int pixels) {
  width_.x1 = pixels;
  add(width_, x_, y_);
}

void Canvas::setFontBold(bool bold) {
  bold_.x1 = bold ? 1 : 0;
  add(bold_, x_, y_);
}

void Canvas::setFontTransparent(bool transparent) {
  transparent_.x1 = transparent ? 1 : 0;
  add(transparent_, x_, y_);
}

void Canvas::setPicture(std::shared_ptr<const Image> picture) {
  picture_ = std::move(picture);
  changed();
}

void Canvas::changed() {
  ++generation_;
  field_.pictureChanged();
}

}  // namespace noldarz
