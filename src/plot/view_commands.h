// Commands of the plot view that change no scale: the picture behind the drawing, expand and clear, what is shown, the
// width of the contours, saving.
#pragma once

#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/settings.h"
#include "plot/fields.h"
#include "plot/state.h"
#include "study/fields.h"
#include "study/outputs.h"
#include "study/state.h"

namespace noldarz {

class PlotViewCommands {
 public:
  struct Sees {
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    ContourState& contours;
    const ProjectFields& project;
    PlotView& view;
    const Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
  };
  /// Subscribes the commands.
  explicit PlotViewCommands(const Sees& sees);

 private:
  void frmfle_Click();
  void Expscrn_Click();
  void ClrScrn_Click();
  void hideDsply_Click();
  void turnDials();
  void chooseLineWidth(bool thin);
  void sve_Click();
  void emptyCanvas();

  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

}  // namespace noldarz
