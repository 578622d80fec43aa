// A release that can happen anywhere along a pipeline: the user traces it with clicks, ends the trace with Enter, gives
// the scale, and a band as wide as the end point of level 0 is drawn around the line, mitred inside its bends, round
// outside and at its ends.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "plot/fields.h"
#include "plot/state.h"

namespace noldarz {

/// Degrees to radians of the band.
inline constexpr double pipelineRadian = 0.0175;
/// Bearing of a segment on the canvas (mm), rounded to whole degrees: 90 up, 180 to the right, 270 down, 360 to the
/// left.
double bearing(double fromX, double fromY, double toX, double toY);

class Pipeline {
 public:
  struct Sees {
    PlotState& plot;
    TraceState& trace;
    PointQueryState& query;
    const std::int16_t& lineWidth;
    const LevelFields& level;
    PlotView& view;
    Desktop& desktop;
  };
  /// Subscribes the command "Plot along pipeline".
  explicit Pipeline(const Sees& sees);

  void pltFrPipe_Click();
  /// A click with any button (mm).
  void traceClick(double x, double y);
  /// The line to the pointer and its bearing.
  void hover(double x, double y);
  /// Stores and draws the segment to the point `traceCount`.
  void addTracePoint();
  /// Empties the trace.
  void clear();

  /// The band. An end point of level 0 that is no number gives "Unable to plot Hazard Zones.", and nothing is drawn; of
  /// a trace without a segment nothing is. False then. A point at (0, 0) counts as none for the arcs and the end.
  bool drawPipelineZones();

 private:
  struct Spot {
    double x = 0;
    double y = 0;
  };
  Spot point(std::size_t i) const { return {sees_.trace.traceX.at(i), sees_.trace.traceY.at(i)}; }
  /// The bearing of segment i, 0 beyond the last.
  double bearingOf(std::size_t i) const { return i < tracePoints ? sees_.trace.traceAngle.at(i) : 0; }
  void drawSides(double r);
  void drawBends(double r);
  void drawArc(const Spot& centre, double r, double from, double to, double turned = 0);
  void line(const Spot& from, const Spot& to);

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
  double traceLastYVar_ = 0;  // y of the last click (mm)
};

}  // namespace noldarz
