// The drawings of the plot view, built and wired as one: what a fit, a scale or a chart draws on its canvas. The plot
// view has one on the state of the program, a plot without its view (plot_picture.h) one on a state of its own.
#pragma once

#include "plot/fit_commands.h"
#include "plot/profile_charts.h"

namespace noldarz {

struct PlotDrawings {
  struct Sees {
    PlotRunState& state;
    EngineState& engineState;
    LimitSearchState& search;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const std::int16_t& lineWidth;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const ToxicFields& toxic;
    const ProjectFields& project;
    const ZoneFields& zone;
    PlotView& view;
    PlumeModel& plume;
    WindShare& windShare;
    LimitSearch& limitSearch;
    const Outputs& outputs;
    Desktop& desktop;
  };
  explicit PlotDrawings(const Sees& sees);

  IsoplethPlot isopleths;
  WindRose rose;
  Pipeline pipeline;
  ScaleDialog scale;
  FitCommands fit;
  ProfileCharts charts;
};

}  // namespace noldarz
