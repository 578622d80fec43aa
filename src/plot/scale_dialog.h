// Ties the canvas to the ground: the user clicks two points, types their distance, and points out the source. The box
// `scleset` over the canvas asks for it. The fit commands, which know their scale, take the same way from applyScale()
// on.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "plot/fields.h"
#include "plot/pipeline.h"
#include "plot/state.h"

namespace noldarz {

class ScaleDialog {
 public:
  struct Sees {
    PlotState& plot;
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    const ZoneFields& zone;
    PlotView& view;
    Pipeline& pipeline;
    Desktop& desktop;
  };
  /// Subscribes the commands of the two scales, of the source, and the rules of the box.
  explicit ScaleDialog(const Sees& sees);

  /// Takes the scale: clears the canvas and draws what lies under the plot that comes. A scale of the user's, the
  /// number in `eqlvalu` for `scaleSpan` of the canvas, then waits for a click on the source; of a fit, `plotScale` and
  /// the source are set before. A number that can't be had changes nothing, and the status line says so.
  void applyScale();

  /// A clear canvas that waits for a click on the source.
  void prepareSource();

  void usrdef_Click();
  /// The box asks for two points; `firstClick` tells which drawing comes of it.
  void askForPoints(std::string_view firstClick);
  /// The bar of a drawing without a grid, and its length in the place of the scale.
  void drawBar();

  /// A left click (mm) on the first and on the second point.
  void takeFirstPoint(double x, double y);
  void takeSecondPoint(double x, double y);

 private:
  void begin(std::string_view firstClick);
  void usrdefB_Click();
  void selectSource(std::string_view drawing);
  void eqlvalu_LostFocus();
  void refuseUnits(const char* text);
  bool takeNumber();
  /// The scale of a traced pipeline: its band is drawn, and nothing cleared.
  void takeScaleOfTrace();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

/// Title of the isopleths seen from above.
inline constexpr std::string_view isoplethTitle{"NOLDA -RZ: Dispersion Model (Isopleth)"};

}  // namespace noldarz
