#include "plot/pipeline.h"

#include <cmath>
#include <optional>

#include "platform/failure.h"
#include "platform/plane.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double degreesPerRadian = 57.25;
constexpr double halfTurn = 180;
constexpr double wholeCircle = 360;
constexpr Colour traceColour = basicPalette[8];
constexpr Colour bandColour = basicPalette[4];
constexpr int traceWidth = 6;  // pixels

/// Angle of the way from one point to another against the upright, whole degrees; `offset` keeps the divisor from 0.
double upright(double fromX, double fromY, double toX, double toY, double offset) {
  return rounded(uprightAngle(fromX + offset - toX, fromY + offset - toY) * degreesPerRadian, 0);
}

double notNought(double angle) { return angle == 0 ? wholeCircle : angle; }

}  // namespace

double bearing(double fromX, double fromY, double toX, double toY) {
  const double A = upright(fromX, fromY, toX, toY, 0.0001);
  return notNought(std::abs(90 - A + (fromY < toY ? halfTurn : 0)));
}

Pipeline::Pipeline(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  sees_.view.view.on(menu_.pltFrPipe, Event::click, [this] { pltFrPipe_Click(); });
}

void Pipeline::clear() {
  const auto words = sees_.trace.pipeWords;
  sees_.trace = {};
  sees_.trace.pipeWords = words;
}

void Pipeline::pltFrPipe_Click() {
  sees_.desktop.setPointer(Pointer::cross);
  clear();
  fields_.canvas.Cls();
  fields_.Drw1.setTag(click::firstPoint);
  fields_.scleset.setVisible(false);
  sees_.trace.pipeMode = true;
  menu_.zoom1.disable();
  menu_.grph.disable();
  sees_.trace.traceRubber = 1;
  fields_.mousetxt.setVisible(false);
  fields_.canvas.setDrawWidth(1);
  sees_.query.drawMode = drawMode::trace;
  fields_.mousetxt.setCaption(" Trace Pipeline points.");
  fields_.statuslbl.setCaption("Click the pipeline from point to point, 11 at most; Enter ends the trace.");
}

void Pipeline::traceClick(double x, double y) {
  TraceState& trace = sees_.trace;
  fields_.Xline.field.setVisible(true);
  const auto count = static_cast<std::size_t>(trace.traceCount);
  if (count >= tracePoints) {
    MessageBox box{.text = "Maximum Trace points is 10"};
    box.title.clear();
    sees_.desktop.messageBox(box);
    fields_.Xline.field.setVisible(false);
    sees_.desktop.setPointer(Pointer::standard);
    sees_.query.drawMode = 0;
    return;
  }
  const bool again = trace.traceHasPoint == 1 && x == trace.traceLastX && y == trace.traceLastY;
  if (again) return;  // a segment of no length has no bearing
  trace.traceX.at(count) = x;
  trace.traceY.at(count) = y;
  traceLastYVar_ = y;
  if (trace.traceHasPoint != 1) {
    trace.traceHasPoint = 1;
  } else {
    trace.traceAngle.at(static_cast<std::size_t>(trace.traceSegs)) = bearing(trace.traceLastX, trace.traceLastY, x, y);
    ++trace.traceSegs;
    trace.traceRubber = 1;
  }
  addTracePoint();
  ++trace.traceCount;
  const auto left = tracePoints - count - 1;
  fields_.statuslbl.setCaption(left == 0 ? "The trace has all its points: press Enter."
                                         : "Points left: " + std::to_string(left) + ". Enter ends the trace.");
}

void Pipeline::addTracePoint() {
  TraceState& trace = sees_.trace;
  const Spot to = point(static_cast<std::size_t>(trace.traceCount));
  if (trace.traceStarted) {
    fields_.Xline.field.setVisible(true);
    fields_.canvas.setDrawWidth(traceWidth);
    fields_.canvas.Line(trace.traceLastX, trace.traceLastY, to.x, to.y, traceColour);
  }
  trace.traceLastX = to.x;
  trace.traceLastY = to.y;
  fields_.canvas.setDrawWidth(1);
  trace.traceStarted = true;
}

void Pipeline::hover(double x, double y) {
  TraceState& trace = sees_.trace;
  fields_.Xline.setEnds(trace.traceLastX, trace.traceLastY, x, y);
  fields_.mousetxt.setVisible(true);
  if (trace.traceHasPoint != 1) return;
  const double A = upright(trace.traceLastX, trace.traceLastY, x, y, 0.001);
  trace.traceAngleNow = notNought(90 - A + (traceLastYVar_ >= y ? 0 : halfTurn));
  fields_.mousetxt.setCaption(plainText(trace.traceAngleNow) + " °deg");
}

bool Pipeline::drawPipelineZones() {
  bool drawn = false;
  Trap{[&](const RuntimeFailure&) { sees_.desktop.messageBox(information(unableToPlot)); }}.step([&] {
    const double r = checked(sees_.level.endpt[0].number() / divisor(sees_.plot.plotScale));
    const auto& trace = sees_.trace;
    std::size_t n = 0;
    while (n < tracePoints && (trace.traceX.at(n) != 0 || trace.traceY.at(n) != 0)) ++n;
    if (trace.traceSegs < 1) return;
    fields_.canvas.setDrawWidth(sees_.lineWidth);
    drawSides(r);
    drawBends(r);
    drawArc(point(0), r, bearingOf(0) - 90, bearingOf(0) + 90);
    if (n >= 2) drawArc(point(n - 1), r, bearingOf(n - 2) + 90, bearingOf(n - 2) + 90 + halfTurn);
    drawn = true;
  });
  return drawn;
}

void Pipeline::line(const Spot& from, const Spot& to) { fields_.canvas.Line(from.x, from.y, to.x, to.y, bandColour); }

namespace {

/// The bend between two segments as a side sees it: how much the mitre is longer than the half width of the band, and
/// at which angle it lies.
struct Mitre {
  double stretch;
  double angle;
};

/// Side A is the one of a turn to a larger bearing. A trace that doubles back has no mitre.
std::optional<Mitre> mitreOfA(double a, double next) {
  if (!(a < next)) return {};
  const double h = (wholeCircle - (halfTurn - a + next)) / 2;
  if (h == 0) return {};
  return Mitre{1 / std::sin(h * pipelineRadian), next + halfTurn + h};
}

std::optional<Mitre> mitreOfB(double a, double next) {
  if (!(a > next) || next == 0) return {};
  const double h = (next - a + halfTurn) / 2;
  if (h == 0) return {};
  return Mitre{1 / std::sin(h * pipelineRadian), a + h};
}

}  // namespace

void Pipeline::drawSides(double r) {
  const auto at = [](const Spot& centre, double radius, double angle) {
    return Spot{centre.x + radius * std::cos(angle * pipelineRadian),
                centre.y + radius * std::sin(angle * pipelineRadian)};
  };
  struct PerSide {
    double offset;  // of the side from the bearing (degrees)
    std::optional<Mitre> (*mitre)(double, double);
    std::optional<Spot> pending{};  // where the next line of the side begins
  } sides[]{{-90, mitreOfA}, {90, mitreOfB}};
  for (std::size_t i = 0; i + 1 < tracePoints; ++i) {
    const double a = bearingOf(i);
    if (a == 0) continue;
    for (PerSide& side : sides) {
      const Spot begin = side.pending ? *side.pending : at(point(i), r, a + side.offset);
      const auto mitre = side.pending ? std::nullopt : side.mitre(a, bearingOf(i + 1));
      const Spot end =
          mitre ? at(point(i + 1), r * mitre->stretch, mitre->angle) : at(point(i + 1), r, a + side.offset);
      line(begin, end);
      side.pending = mitre ? std::optional{end} : std::nullopt;
    }
  }
}

void Pipeline::drawBends(double r) {
  for (std::size_t i = 0; i + 1 < tracePoints; ++i) {
    const double a = bearingOf(i);
    const double b = bearingOf(i + 1);
    if (a == 0 && point(i).x == 0 && point(i).y == 0) return;
    if (b == 0 || a == b) continue;
    const double turned = b <= halfTurn ? halfTurn : -halfTurn;
    if (a < b)
      drawArc(point(i + 1), r, a - 90, b - 90, turned);
    else
      drawArc(point(i + 1), r, b + 90, a + 90, turned);
  }
}

void Pipeline::drawArc(const Spot& centre, double r, double from, double to, double turned) {
  std::optional<Spot> before;
  for (int i = 0; from + i <= to; ++i) {
    const double angle = (from + i + turned) * pipelineRadian;
    const Spot now{centre.x + r * std::cos(angle), centre.y + r * std::sin(angle)};
    if (before) line(*before, now);
    before = now;
  }
}

}  // namespace noldarz
