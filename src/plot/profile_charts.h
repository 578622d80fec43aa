// Two charts of a run along the plume axis, on the canvas of the plots: concentration, and the percent of people who
// die or are hurt. The percent curves come from the limit search, which draws into this room. The user narrows a chart
// to a distance that he clicks.
#pragma once

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "platform/desktop.h"
#include "plot/fields.h"
#include "plot/state.h"
#include "study/outputs.h"
#include "toxic/fields.h"
#include "toxic/limit_search.h"

namespace noldarz {

class ProfileCharts : public ProfileSink {
 public:
  struct Sees {
    ModelState& model;
    LimitSearchState& search;
    ChartState& chart;
    const std::int16_t& lineWidth;
    const LevelFields& level;
    const ResultFields& result;
    const ToxicFields& toxic;
    PlotView& view;
    PlumeModel& plume;
    LimitSearch& limits;
    const Outputs& outputs;
    Desktop& desktop;
  };
  /// Subscribes the commands.
  explicit ProfileCharts(const Sees& sees);

  /// Opens the view on the concentration chart.
  void openProfile();

  /// The concentration (ppm) over the distance, every metre as far as `maxdstprtxt`, at
  ///
  ///   x = distAt / distPerUnit + 10,  y = 130 - concPrbt / concPerUnit   (mm),
  ///   distPerUnit = maxDistPrbt / 180,  concPerUnit = 1.1 constn1 / 130
  ///
  /// The labels of the upright axis end at constn1 + 200. A distance or maximum that is no number gives "Unable to plot
  /// Concentration Profile.", and the view closes; false then.
  bool drawConcProfile();

  /// Fatality and injury (%) by the limit search. False when it can't be drawn, after "Unable to plot Profile." or what
  /// the status line says.
  bool drawPercentProfile();

  /// A click at x (mm) takes the distance there as the new end of the chart.
  void pickDistance(double x);

  /// Whether a chart is on the canvas.
  bool isShown() const { return showsPercent() || showsConcentration(); }

  // The percent chart, from the limit search.
  void drawFrame() override;
  void drawSegment(double x1, double y1, double x2, double y2, Colour colour) override {
    fields_.canvas.Line(x1, y1, x2, y2, colour);
  }

 private:
  bool showsPercent() const { return menu_.ftlinjryprofl.tag() == tag::percentChart; }
  bool showsConcentration() const { return menu_.ftlinjryprofl.tag() == tag::concentrationChart; }
  void ihrprofl_Click();
  void ftlinjryprofl_Click();
  void ftltyZoom_Click();
  void restzoom_Click();
  void redraw();
  /// concPrbt at distAt.
  void evaluate();
  void leavePick();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

/// The frame of a chart: axes, grid and labels, in the fixed place of a chart on the canvas.
struct ChartFrame {
  double maxDist = 0;     ///< right end of the distance axis (m)
  double top = 0;         ///< what the upper edge stands for
  const char* unit = "";  ///< of the upright axis: "(ppm)"
  const char* km = "";    ///< how kilometres are written
};
void drawChartFrame(Canvas& canvas, const ChartFrame& frame, int lineWidth);

/// Colours of the percent curves.
inline constexpr Colour fatalityCurve = basicPalette[12];
inline constexpr Colour injuryCurve = basicPalette[10];
/// Colour of the concentration curve.
inline constexpr Colour concentrationCurve = basicPalette[4];

/// At the pointer while a distance is asked for.
inline constexpr std::string_view pickText{" Select distance"};

/// Place of the charts on the canvas (mm): foot of the upright axis, right end, and how long the distance axis is; and
/// what the labels of that axis end at.
namespace chart {
inline constexpr double left = 10;
inline constexpr double readingLeft = 10.31;  ///< where a reading begins to count the distance
inline constexpr double topPercent = 105;
inline constexpr double labelMargin = 200;  ///< ppm above the maximum
inline constexpr double foot = 130;
inline constexpr double right = 190;
inline constexpr double length = 180;
}  // namespace chart

}  // namespace noldarz
