// What arrives at a place on the drawing: a click tells its distance from the source, the concentration on the plume
// axis at that distance, and what that means for people. The direction of the place plays no part: the wind may turn.
#pragma once

#include <string_view>
#include <vector>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "platform/desktop.h"
#include "plot/scale_dialog.h"

namespace noldarz {

class LocationQuery {
 public:
  struct Sees {
    PlotState& plot;
    ClickState& clicks;
    ModelState& model;
    PointQueryState& query;
    const LevelFields& level;
    PlotView& view;
    PlumeModel& plume;
    ScaleDialog& scale;
    Desktop& desktop;
  };
  /// Subscribes the command "Select Location".
  explicit LocationQuery(const Sees& sees);

  /// Asks for scale and source first; once they are there, waits for places.
  void sltloctn_Click();
  /// Marks a place (mm) with its distance, concentration and hazard. On the source itself there is no concentration.
  void ask(double x, double y);
  /// Enter or Escape.
  void leave();

 private:
  Sees sees_;
  PlotFields& fields_;
  const PlotMenu& menu_;
};

/// What a concentration (ppm) means by the levels of the run: one line as a rule, none for levels of the user's own.
std::vector<std::string_view> hazardLines(double concentration, const LevelFields& level);

}  // namespace noldarz
