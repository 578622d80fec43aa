#include "plot/pointer.h"

#include <algorithm>
#include <cmath>

#include "platform/text.h"
#include "plot/paper.h"

namespace noldarz {

PlotPointer::PlotPointer(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  sees_.view.view.onPointer(fields_.Drw1, [this](const PointerEvent& pointer) {
    if (pointer.act == PointerEvent::Act::down) Drw1_MouseDown(pointer);
    if (pointer.act == PointerEvent::Act::move) Drw1_MouseMove(pointer);
  });
}

void PlotPointer::Drw1_MouseDown(const PointerEvent& pointer) {
  const bool takesClicks = sees_.query.drawMode == 0 && menu_.Ftvert.tag() == tag::none;
  if (takesClicks && pointer.button == PointerEvent::Button::left) takeClick(pointer.x, pointer.y);
  menu_.Ftvert.setTag(tag::none);
}

void PlotPointer::takeClick(double x, double y) {
  const std::string& expected = fields_.Drw1.tag();
  if (expected == click::secondPoint) return sees_.scale.takeSecondPoint(x, y);
  if (expected == click::firstPoint || expected == click::firstPointOfRose) return sees_.scale.takeFirstPoint(x, y);
  if (expected == click::source) takeSource(x, y);
}

void PlotPointer::takeSource(double x, double y) {
  Canvas& canvas = fields_.canvas;
  canvas.setDrawWidth(sees_.lineWidth);
  if (menu_.selctdwg.tag() == tag::picture) {
    fields_.sclsdspl.setCaption(scaleBarText(sees_.plot.plotScale));
    drawScaleBar(canvas, sees_.plot.plotScale);
  }
  sees_.plot.sourceX = x;
  sees_.plot.sourceY = y;
  markSource(canvas, x, y, Weight::bold);
  fields_.mousetxt.setCaption("");
  fields_.statuslbl.setCaption("");
  if (menu_.FtvertB.tag() != tag::rose) {
    sees_.isopleths.drawIsopleths();
    fields_.Drw1.setTag(click::none);
    return;
  }
  sees_.rose.windRoseTable();
  if (!sees_.rose.drawRoseEnd() || !sees_.rose.drawRoseBegin()) return;
  fields_.Drw1.setTag(click::none);
  markSource(canvas, x, y, Weight::normal);
}

void PlotPointer::Drw1_MouseMove(const PointerEvent& pointer) {
  const std::string& expected = fields_.Drw1.tag();
  const bool second = expected == click::secondPoint;
  if (second || expected == click::firstPoint || expected == click::firstPointOfRose) moveBox(pointer.x, pointer.y);
  if (second && pointer.button == PointerEvent::Button::none) fields_.Xline.setStart(pointer.x, pointer.y);
  fields_.mousetxt.setLeft(pointer.x + 3);
  fields_.mousetxt.setTop(pointer.y + 2);
  if (expected == click::none) tellPlace(pointer.x, pointer.y);
}

BoxPlace boxPlace(double x, double y) {
  constexpr double farRight = 140;  // mm
  constexpr double farUp = 20;
  constexpr double farDown = 122;
  if (x >= farRight && y < farUp) return {x - 50, y + 1};
  if (x < farRight && y > farDown) return {x + 5, y - 30};
  if (x > farRight && y > farUp && y != farDown) return {x - 50, y - 30};
  return {x + 5, y + 5};
}

void PlotPointer::moveBox(double x, double y) const {
  const auto [left, top] = boxPlace(x, y);
  fields_.scleset.setLeft(left);
  fields_.scleset.setTop(top);
}

void PlotPointer::tellPlace(double x, double y) const {
  const PlotState& plot = sees_.plot;
  const auto& texts = fields_.canvas.drawing().texts;
  const bool placed =
      std::any_of(texts.begin(), texts.end(), [](const std::string& text) { return text.starts_with(sourceText); });
  if (!placed) return;  // nothing tells where the source is
  const double right = (x - plot.sourceX) * plot.plotScale;
  const double up = (plot.sourceY - y) * plot.plotScale;
  const auto metres = [](double value) { return Format(std::abs(value), "0.00") + " m "; };
  fields_.statuslbl.setCaption(metres(right) + (right < 0 ? "left" : "right") + ", " + metres(up) +
                               (up < 0 ? "down" : "up") + ", " + metres(std::hypot(right, up)) + "from the source");
}

}  // namespace noldarz
