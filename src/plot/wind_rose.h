// The wind rose plot: one closed curve a level around the source, whose radius follows how often the wind blows into
// each of 16 sectors. Called by the rose commands of the plot view; the table also when a wind share of the main view
// is left.
#pragma once

#include "engine/fields.h"
#include "engine/wind_share.h"
#include "platform/desktop.h"
#include "plot/fields.h"
#include "plot/state.h"
#include "study/fields.h"

namespace noldarz {

class WindRose {
 public:
  struct Sees {
    PlotState& plot;
    RoseState& rose;
    const WindShareState& shares;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ProjectFields& project;
    const ZoneFields& zone;
    PlotFields& view;
    const PlotMenu& menu;
    WindShare& wind;
    Desktop& desktop;
  };
  explicit WindRose(const Sees& sees) : sees_(sees) {}

  /// Shares the wind out over the sectors; a sum above 100 % leaves the table as it was, after its box. A share that is
  /// no number leaves the sectors that need it as they were.
  ///
  ///   windHalf(2k) = 0.5 Givnwnd(k), windHalf(2k + 1) = 0.5 windHalf(2k) + 0.5 windHalf(2k + 2)
  ///   windFrac(j) = (windHalf(j) + windHalf(j) / windTotal) / 100
  void windRoseTable();

  /// The curves of the end points E: radius E (1 - windFrac), 0.2 E in a sector without wind. Where a text is no number
  /// the rose ends with "Unable to plot Zones."; false then.
  bool drawRoseEnd();
  /// The same of the begin points, E (1 - windFrac) everywhere, without labels.
  bool drawRoseBegin();

 private:
  bool draw(const FieldArray<levelCount>& distances, bool ends);
  void curve(int level, const Field& distance, bool ends);
  double radius(double whole, int sector, bool ends) const;

  Sees sees_;
};

}  // namespace noldarz
