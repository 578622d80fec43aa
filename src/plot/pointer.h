// What the canvas does with pointer and keys: clicks feed the dialog that is open, moves carry the overlays along, tell
// where the pointer is, and read the curves of a chart by their colour.
#pragma once

#include "platform/desktop.h"
#include "platform/pointer_event.h"
#include "plot/isopleth_plot.h"
#include "plot/location_query.h"
#include "plot/pipeline.h"
#include "plot/profile_charts.h"
#include "plot/scale_dialog.h"
#include "plot/wind_rose.h"

namespace noldarz {

class PlotPointer {
 public:
  struct Sees {
    PlotState& plot;
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    const LimitSearchState& search;
    const std::int16_t& lineWidth;
    const ResultFields& result;
    PlotView& view;
    ScaleDialog& scale;
    LocationQuery& location;
    ProfileCharts& charts;
    Pipeline& pipeline;
    IsoplethPlot& isopleths;
    WindRose& rose;
    Desktop& desktop;
  };
  /// Subscribes the pointer and the keys of the canvas.
  explicit PlotPointer(const Sees& sees);

 private:
  void Drw1_MouseDown(const PointerEvent& pointer);
  void Drw1_MouseMove(const PointerEvent& pointer);
  void Drw1_KeyDown(const KeyEvent& key);
  void LblDsply_DblClick(Field& row);

  void takeClick(const PointerEvent& pointer);
  void takeSource(double x, double y);
  void keepReadout();
  void moveBox(double x, double y) const;
  void moveLines(const PointerEvent& pointer);
  void tellPlace(double x, double y) const;
  /// The curve of a chart under the pointer, read on the scales of its labels.
  void readCurve(double x, double y);
  /// The reading of a curve, by its row in the table of curves, at a point (mm).
  void tellReading(std::size_t curve, double x, double y);
  /// The point of the curve next to `from` (mm), for a way of 1 or -1 only beyond it; null when there is none.
  const Primitive* pointOf(std::size_t curve, double from, double way) const;
  /// Goes along the curve that was read last, or to another one.
  void followCurve(std::string_view key);
  void endTrace();
  void leaveClicks();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
  double readX_ = 0;       // mm, where a curve was read last
  std::size_t curve_ = 0;  // which one, by its row in the table of curves
};

/// Where the box of the scale goes from the pointer (mm), so that it is not in its way.
struct BoxPlace {
  double left = 0;
  double top = 0;
};
BoxPlace boxPlace(double x, double y);

}  // namespace noldarz
