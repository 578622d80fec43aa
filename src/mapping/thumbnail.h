// The zones at a glance: beside the figures of the main view the isopleths of the last Compute, in the wind of the zone
// view. It is drawn when a front shows it, and changes nothing of the run; a click leads where "Plot Hazard Zones"
// leads.
#pragma once

#include "platform/settings.h"
#include "plot/plot_picture.h"
#include "scenario/main_view.h"
#include "study/outputs.h"

namespace noldarz {

class Thumbnail {
 public:
  struct Sees {
    const MainView& main;
    const EngineState& engine;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const Outputs& outputs;
    const Settings& settings;
  };
  /// Adds its field to the main view, and follows the commands that change the results there.
  explicit Thumbnail(const Sees& sees);

 private:
  /// There is a picture when there are outputs, and it is a new one.
  void follow();
  void draw();

  Sees sees_;
  PlotPicture picture_;
  Field& zonethumb_;
};

}  // namespace noldarz
