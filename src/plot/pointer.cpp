#include "plot/pointer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/canvas/hit.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "plot/paper.h"

namespace noldarz {

namespace {

/// The curves of the charts by their colour, and what their readings are called.
struct Curve {
  Colour colour;
  const char* name;
  const char* unit;
  bool isPercent;
};
constexpr std::array<Curve, 3> curves{{{fatalityCurve, "Percent Fatality ", " %", true},
                                       {injuryCurve, "Percent Injury ", " %", true},
                                       {concentrationCurve, "Concentration ", " ppm", false}}};

/// A reading as the user sees it: two decimals at most, without a sign.
std::string readingText(double value) { return plainText(std::abs(rounded(value, 2))); }

}  // namespace

PlotPointer::PlotPointer(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.onPointer(fields_.Drw1, [this](const PointerEvent& pointer) {
    if (pointer.act == PointerEvent::Act::down) Drw1_MouseDown(pointer);
    if (pointer.act == PointerEvent::Act::move) Drw1_MouseMove(pointer);
  });
  view.onKey(fields_.Drw1, [this](const KeyEvent& key) { Drw1_KeyDown(key); });
  for (int i = 0; i < levelCount; ++i)
    view.on(fields_.LblDsply[i], Event::dblClick, [this, &row = fields_.LblDsply[i]] { LblDsply_DblClick(row); });
}

void PlotPointer::Drw1_MouseDown(const PointerEvent& pointer) {
  takeClick(pointer);
  menu_.Ftvert.setTag(tag::none);
  if (sees_.charts.isShown()) keepReadout();
  if (pointer.button == PointerEvent::Button::left && fields_.Drw1.tag() == click::distance)
    sees_.charts.pickDistance(pointer.x);
}

void PlotPointer::takeClick(const PointerEvent& pointer) {
  const auto mode = sees_.query.drawMode;
  if (mode == drawMode::location && sees_.clicks.locationReady == 1) return sees_.location.ask(pointer.x, pointer.y);
  if (mode != 0 && mode != drawMode::traceScale) {
    if (mode == drawMode::trace) sees_.pipeline.traceClick(pointer.x, pointer.y);
    return;
  }
  if (menu_.Ftvert.tag() != tag::none || pointer.button != PointerEvent::Button::left) return;
  const std::string& expected = fields_.Drw1.tag();
  if (expected == click::secondPoint) return sees_.scale.takeSecondPoint(pointer.x, pointer.y);
  if (expected == click::firstPoint || expected == click::firstPointOfRose)
    return sees_.scale.takeFirstPoint(pointer.x, pointer.y);
  if (expected == click::source) takeSource(pointer.x, pointer.y);
}

void PlotPointer::takeSource(double x, double y) {
  Canvas& canvas = fields_.canvas;
  canvas.setDrawWidth(sees_.lineWidth);
  if (menu_.selctdwg.tag() == tag::picture) sees_.scale.drawBar();
  sees_.plot.sourceX = x;
  sees_.plot.sourceY = y;
  markSource(canvas, x, y, Weight::bold);
  fields_.mousetxt.setCaption("");
  fields_.statuslbl.setCaption("");
  if (menu_.FtvertB.tag() != tag::rose) {
    if (sees_.clicks.locationReady == 1)
      sees_.location.sltloctn_Click();
    else
      sees_.isopleths.drawIsopleths();
    fields_.Drw1.setTag(click::none);
    return;
  }
  sees_.rose.windRoseTable();
  if (!sees_.rose.drawRoseEnd() || !sees_.rose.drawRoseBegin()) return;
  fields_.Drw1.setTag(click::none);
  markSource(canvas, x, y, Weight::normal);
}

void PlotPointer::keepReadout() {
  const std::string& readout = fields_.mousetxt.caption();
  if (readout.empty() || readout == pickText) return;
  fields_.lndFRme.setVisible(true);
  for (int i = 0; i < levelCount; ++i) {
    sees_.clicks.legendIdx = i;
    if (fields_.LblDsply[i].caption().empty()) return fields_.LblDsply[i].setCaption(readout);
  }
}

void PlotPointer::LblDsply_DblClick(Field& row) {
  if (sees_.charts.isShown()) row.setCaption("");
  bool any = false;
  for (int i = 0; i < levelCount; ++i) any = any || !fields_.LblDsply[i].caption().empty();
  fields_.lndFRme.setVisible(any);
}

void PlotPointer::Drw1_MouseMove(const PointerEvent& pointer) {
  const std::string& expected = fields_.Drw1.tag();
  if (expected == click::firstPoint || expected == click::secondPoint || expected == click::firstPointOfRose)
    moveBox(pointer.x, pointer.y);
  moveLines(pointer);
  fields_.mousetxt.setLeft(pointer.x + 3);
  fields_.mousetxt.setTop(pointer.y + 2);
  if (sees_.charts.isShown()) readCurve(pointer.x, pointer.y);
  if (sees_.trace.traceRubber == 1) sees_.pipeline.hover(pointer.x, pointer.y);
  if (expected == click::distance) {
    fields_.Xline.field.setVisible(true);
    fields_.Xline.setEnds(pointer.x, 0, pointer.x, 160);
  }
  if (expected == click::none && !sees_.charts.isShown() && sees_.query.drawMode == 0) tellPlace(pointer.x, pointer.y);
}

void PlotPointer::moveLines(const PointerEvent& pointer) {
  const std::string& expected = fields_.Drw1.tag();
  if (expected == click::secondPoint && pointer.button == PointerEvent::Button::none)
    fields_.Xline.setStart(pointer.x, pointer.y);
  else if (expected == click::none && sees_.query.drawMode == drawMode::location)
    fields_.Xline.setEnd(pointer.x, pointer.y);
}

void PlotPointer::readCurve(double x, double y) {
  const auto colour = colourAt(fields_.canvas.drawing(), x, y);
  const auto curve = std::find_if(curves.begin(), curves.end(), [&](const Curve& c) { return c.colour == colour; });
  if (curve != curves.end()) return tellReading(static_cast<std::size_t>(curve - curves.begin()), x, y);
  const bool picks = fields_.Drw1.tag() == click::distance;
  fields_.mousetxt.setVisible(picks);
  fields_.mousetxt.setCaption(picks ? pickText : "");
  sees_.desktop.setPointer(Pointer::standard);
}

void PlotPointer::tellReading(std::size_t curve, double x, double y) {
  const Curve& read = curves.at(curve);
  silently([&] {
    const double top = read.isPercent ? chart::topPercent : sees_.result.constn1.number() + chart::labelMargin;
    const double reach = sees_.search.maxDistPrbt;
    const double distance = (x - chart::readingLeft) * reach / chart::length;
    fields_.mousetxt.setCaption(
        read.name + readingText(top * (y - chart::foot) / chart::foot) + read.unit + "\n At Distance " +
        (reach < 1000 ? Format(distance, "0.000") + " m" : Format(distance / 1000, "0.000") + " Km"));
    readX_ = x;
    curve_ = curve;
    fields_.mousetxt.setLeft(x + 5);
    fields_.mousetxt.setTop(y + 5);
    fields_.mousetxt.setVisible(true);
    sees_.desktop.setPointer(Pointer::cross);
  });
}

const Primitive* PlotPointer::pointOf(std::size_t curve, double from, double way) const {
  const Primitive* nearest = nullptr;
  for (const Primitive& p : fields_.canvas.drawing().primitives) {
    if (p.kind != Primitive::Kind::Line || p.colour != curves.at(curve).colour || (p.x2 - from) * way < 0) continue;
    if (!nearest || std::abs(p.x2 - from) < std::abs(nearest->x2 - from)) nearest = &p;
  }
  return nearest;
}

void PlotPointer::followCurve(std::string_view key) {
  constexpr double stride = 0.5;  // mm, or to the next point of a short chart
  const bool sideways = key == "Left" || key == "Right";
  const double way = key == "Left" ? -1 : key == "Right" ? 1 : 0;
  for (std::size_t tried = 0; tried < curves.size(); ++tried) {
    const std::size_t curve = (curve_ + tried + (sideways ? 0 : 1)) % curves.size();  // another chart has others
    if (const Primitive* point = pointOf(curve, readX_ + way * stride, way))
      return tellReading(curve, point->x2, point->y2);
  }
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

void PlotPointer::Drw1_KeyDown(const KeyEvent& key) {
  const auto& words = sees_.trace.pipeWords;
  const bool allWords = std::all_of(words.begin(), words.end(), [](std::int32_t at) { return at > 0; });
  const bool leaves = key.name == "Enter" || key.name == "Escape";
  if (key.name == "Enter" && sees_.trace.pipeMode && !allWords)
    endTrace();
  else if (leaves && sees_.query.drawMode == drawMode::location)
    sees_.location.leave();
  else if (key.name == "Escape")
    leaveClicks();
  else if (sees_.charts.isShown() &&
           (key.name == "Left" || key.name == "Right" || key.name == "Up" || key.name == "Down"))
    followCurve(key.name);
  if (sees_.clicks.locationOn == 1) {
    menu_.slcsrc.disable();
    sees_.clicks.locationOn = 0;
  }
}

void PlotPointer::endTrace() {
  TraceState& trace = sees_.trace;
  trace.traceHasPoint = trace.traceRubber = 0;
  fields_.mousetxt.setCaption("");
  if (trace.traceSegs == 0) {  // nothing to draw a band around
    trace.pipeMode = false;
    sees_.query.drawMode = 0;
    return leaveClicks();
  }
  sees_.query.drawMode = drawMode::traceScale;
  sees_.scale.askForPoints(click::firstPoint);
}

void PlotPointer::leaveClicks() {
  const std::string& expected = fields_.Drw1.tag();
  const bool traces = sees_.trace.pipeMode && sees_.query.drawMode != drawMode::traceScale;
  if (expected == click::none || traces) return;  // a trace ends with Enter
  fields_.Drw1.setTag(click::none);
  fields_.scleset.setVisible(false);
  fields_.Xline.field.setVisible(false);
  fields_.mousetxt.setCaption("");
  fields_.statuslbl.setCaption("");
  menu_.usrdef.enable();
  sees_.clicks.locationReady = 0;
  sees_.desktop.setPointer(Pointer::standard);
}

}  // namespace noldarz
