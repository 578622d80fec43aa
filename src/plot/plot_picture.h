// A plot without its view: the zones of the run that the main view shows, drawn on a canvas of its own by the same commands,
// with all that they would change kept apart. For the command line and for the picture beside the figures.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "platform/quiet_desktop.h"
#include "plot/fit_commands.h"

namespace noldarz {

class PlotPicture {
 public:
  struct Sees {
    const EngineState& engine;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ProjectFields& project;
  };
  struct Wish {
    Fit fit = Fit::vertical;
    std::optional<int> wind;                ///< of isopleths (degrees, 0 up, clockwise); none: that of the fit
    double north = 0;                       ///< of a rose (degrees)
    std::array<bool, levelCount> levels{};  ///< to be drawn; those without begin and end are left out
    bool limits = false;                    ///< with the circles of the limits
    double width = 0;                       ///< of the canvas (mm), more than 20
    double height = 0;                      ///< the same (mm)
  };
  explicit PlotPicture(const Sees& sees);

  /// Draws the run as it stands. Empty, or what the plot would say in a box: there is nothing to draw then.
  std::string draw(const Wish& wish);

  Canvas& canvas() { return view_.fields.canvas; }
  const PlotFields& fields() const { return view_.fields; }

 private:
  Sees sees_;
  Views views_;
  QuietDesktop desktop_;
  EngineState engine_;
  PlotRunState state_;
  const std::int16_t lineWidth_ = 2;
  Outputs outputs_;
  PlotView view_;
  View zoneView_;
  ZoneFields zone_;
  View resultView_;
  ResultFields result_;
  ProfileProgress progress_;
  PlumeModel plume_;
  WindShare share_;
  IsoplethPlot isopleths_;
  WindRose rose_;
  ScaleDialog scale_;
  FitCommands fit_;
};

}  // namespace noldarz
