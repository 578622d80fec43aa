// What the canvas does with the pointer: clicks feed the dialog that is open, moves carry the overlays along and tell
// where the pointer is.
#pragma once

#include "platform/desktop.h"
#include "platform/pointer_event.h"
#include "plot/isopleth_plot.h"
#include "plot/scale_dialog.h"
#include "plot/wind_rose.h"

namespace noldarz {

class PlotPointer {
 public:
  struct Sees {
    PlotState& plot;
    const PointQueryState& query;
    const std::int16_t& lineWidth;
    PlotView& view;
    ScaleDialog& scale;
    IsoplethPlot& isopleths;
    WindRose& rose;
  };
  /// Subscribes the pointer of the canvas.
  explicit PlotPointer(const Sees& sees);

 private:
  void Drw1_MouseDown(const PointerEvent& pointer);
  void Drw1_MouseMove(const PointerEvent& pointer);
  void takeClick(double x, double y);
  void takeSource(double x, double y);
  void moveBox(double x, double y) const;
  void tellPlace(double x, double y) const;

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

/// Where the box of the scale goes from the pointer (mm), so that it is not in its way.
struct BoxPlace {
  double left = 0;
  double top = 0;
};
BoxPlace boxPlace(double x, double y);

}  // namespace noldarz
