// Plots that fill the page: the scale is such that the end point of the level `zoomLevel` just fits, and the zoom goes
// from level to level. Commands of the plot view; a picture without a view (plot_picture.h) is drawn here, too.
#pragma once

#include <optional>

#include "plot/isopleth_plot.h"
#include "plot/scale_dialog.h"
#include "plot/wind_rose.h"

namespace noldarz {

enum class Fit : std::uint8_t { vertical, horizontal, elevation, rose };

/// Where the source lies on the canvas (mm), which way the wind blows (degrees), and how much of the canvas the end
/// point of a level takes (mm).
struct FitPlace {
  double sourceX = 0;
  double sourceY = 0;
  int wind = 0;
  double length = 0;
};

/// The place of a fit on a canvas of that size (mm); a side view lifts its source by the height of the release.
FitPlace fitPlace(Fit fit, double canvasWidth, double canvasHeight);
/// The same for isopleths in any direction of the wind: from the source to the end point the axis fills the page but
/// for its margins. For 0 degrees it is that of Fit::vertical, for 90 that of Fit::horizontal.
FitPlace fitPlace(int wind, double canvasWidth, double canvasHeight);

class FitCommands {
 public:
  struct Sees {
    PlotState& plot;
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    const std::int16_t& lineWidth;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ZoneFields& zone;
    PlotView& view;
    ScaleDialog& scale;
    IsoplethPlot& isopleths;
    WindRose& rose;
    Desktop& desktop;
  };
  /// Subscribes the commands.
  explicit FitCommands(const Sees& sees);

  /// Draws the fit, isopleths on request in another direction of the wind. A run of which no level has an end point, or
  /// a height of release that is no number, gives "Unable to plot Hazard Zones." and changes nothing. False then, and
  /// when the plot has failed on its way.
  bool draw(Fit fit, std::optional<int> wind = {});

  /// Takes `zoomLevel` to a level with an end point: to itself, the nearest of a higher concentration, or else of a
  /// lower one. False when there is none.
  bool findLevel();

 private:
  void begin(Fit fit);
  bool drawZones(Fit fit);
  bool drawRose();
  void zoom(int step);
  void repeat();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

}  // namespace noldarz
