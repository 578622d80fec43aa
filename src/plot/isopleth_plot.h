// The isopleth plot: for one wind direction the outline of each level's cloud, sample by sample, the circles of the end
// points and of the fatality and injury limits. It draws a finished run; scale and source are set before it.
#pragma once

#include <functional>
#include <optional>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "platform/desktop.h"
#include "platform/text.h"
#include "plot/fields.h"
#include "plot/state.h"
#include "study/fields.h"
#include "study/outputs.h"
#include "toxic/fields.h"

namespace noldarz {

class IsoplethPlot {
 public:
  struct Sees {
    PlotState& plot;
    PointQueryState& query;
    ModelState& model;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const std::int16_t& lineWidth;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ProjectFields& project;
    const ZoneFields& zone;
    PlotFields& view;
    const PlotMenu& menu;
    ProfileProgress& progress;
    PlumeModel& plume;
    const Outputs& outputs;
    Desktop& desktop;
  };
  explicit IsoplethPlot(const Sees& sees) : sees_(sees) {}

  /// Draws the levels from the lowest concentration up. At distance x downwind, half width w (both mm of the canvas)
  /// and wind direction a (0 up, clockwise), a point of the outline is
  ///
  ///   (sourceX + d sin a -+ w cos a, sourceY - d cos a -+ w sin a),   d = sqrt(0.00001^2 + w + x^2)
  ///
  /// A level has samples every 0.1 m below 100 m and every 1 m from there on. Where a level that is drawn has no number
  /// as its end point the plot ends with "Unable to plot Hazard Zones.", and the results report closes. False then.
  bool drawIsopleths();

 private:
  struct Sample {
    double x = 0;  ///< point on the axis (mm)
    double y = 0;
    double w = 0;  ///< half width (mm)
  };
  bool isOutlined(int level) const;
  void outline(int level);
  void endCircle(int level);
  void limitCircles();
  Sample sample(double without);
  void lineTo(double x, double y);
  void showProgress(int level);
  Colour colour() const { return basicPalette.at(static_cast<std::size_t>(sees_.plot.plotColour)); }

  Sees sees_;
  double sin_ = 0;  // of the wind direction
  double cos_ = 1;
  std::optional<Sample> pen_;  // where the outline has come to; none before its first sample
  int tips_ = 0;               // labels of this plot
};

/// Degrees to radians of the isopleth plot.
inline constexpr double isoplethRadian = 0.01745;

}  // namespace noldarz
