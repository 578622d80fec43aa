// A plot without its view: the zones of the run that the main view shows, drawn on a canvas of its own by the same
// commands, with all that they would change kept apart. For the command line and for the picture beside the figures.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "engine/progress.h"
#include "platform/quiet_desktop.h"
#include "plot/drawings.h"

namespace noldarz {

enum class PlotKind : std::uint8_t { isopleths, elevation, rose, concentration, percent, pipeline };
/// The charts have one size, whatever the canvas.
inline bool isChart(PlotKind kind) { return kind == PlotKind::concentration || kind == PlotKind::percent; }

class PlotPicture {
 public:
  struct Sees {
    const EngineState& engine;
    const RawLimitState& rawLimits;
    const StoredLimitState& limits;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const ToxicFields& toxic;
    const ProjectFields& project;
  };
  /// A point of a pipeline (m), x to the right, y up.
  struct TracePoint {
    double x = 0;
    double y = 0;
  };
  struct Wish {
    PlotKind kind = PlotKind::isopleths;
    std::optional<int> wind;                ///< of isopleths (degrees, 0 up, clockwise); none: up
    double north = 0;                       ///< of a rose (degrees)
    std::array<bool, levelCount> levels{};  ///< to be drawn; those without begin and end are left out
    bool limitCircles = false;              ///< with the circles of the limits
    std::vector<TracePoint> trace{};        ///< of a pipeline, 2 to 11 points
    double width = 0;                       ///< of the canvas (mm), more than 20
    double height = 0;                      ///< the same (mm)
  };
  explicit PlotPicture(const Sees& sees);

  /// Draws the run as it stands. Empty, or what the plot would say in a box: there is nothing to draw then.
  std::string draw(const Wish& wish);

  Canvas& canvas() { return view_.fields.canvas; }
  const PlotFields& fields() const { return view_.fields; }

 private:
  bool drawZones(const Wish& wish);
  bool drawPipeline(const Wish& wish);

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
  ToxicFields toxic_;
  ToxicState toxicState_;
  PlumeModel plume_;
  Progress progress_;
  LimitSearch limitSearch_;
  WindShare share_;
  PlotDrawings drawings_;
};

}  // namespace noldarz
