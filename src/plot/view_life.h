// How the plot view opens, comes to the front and closes.
#pragma once

#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/settings.h"
#include "plot/fit_commands.h"
#include "plot/pipeline.h"
#include "study/outputs.h"
#include "study/state.h"

namespace noldarz {

class PlotViewLife {
 public:
  struct Sees {
    View& mainView;
    PlotState& plot;
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    ContourState& contours;
    const LevelFields& level;
    const CommandFields& command;
    const ProjectFields& project;
    PlotView& view;
    FitCommands& fit;
    Pipeline& pipeline;
    const Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
  };
  /// Subscribes the rules of the view's life.
  explicit PlotViewLife(const Sees& sees);

 private:
  void Form_Load();
  void Form_Activate();
  void closing();
  void takeLineWidth();
  void fillLegend();
  void findPipeWords();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

/// Where the width of the contours is kept for the user.
namespace contourSetting {
inline constexpr const char* application = "noldarzLnWidth";
inline constexpr const char* section = "LnWidthstr";
inline constexpr const char* key = "LnWidthstr1";
}  // namespace contourSetting

/// Lays canvas, dial and legend out as large as the screen lets them.
void layOutPlain(PlotFields& fields, const ScreenSize& screen);
/// The canvas over the whole screen, dial and legend at its right edge.
void layOutExpanded(PlotFields& fields, const ScreenSize& screen);

}  // namespace noldarz
