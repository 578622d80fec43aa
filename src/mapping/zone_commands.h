// What the zone view does: it turns the dials, by slider, pointer and keys, chooses levels, keeps the scale of a
// drawing, and goes to the plot view and back.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "mapping/zone_view.h"
#include "platform/desktop.h"
#include "platform/pointer_event.h"
#include "platform/settings.h"
#include "platform/status_line.h"
#include "plot/state.h"
#include "population/wind_direction.h"
#include "scenario/state.h"
#include "study/outputs.h"
#include "study/queries.h"
#include "study/state.h"

namespace noldarz {

class ZoneCommands {
 public:
  struct Sees {
    View& mainView;
    PlotState& plot;
    ClickState& clicks;
    TraceState& trace;
    PointQueryState& query;
    LevelState& passes;
    StudyState& study;
    ScenarioState& scenario;
    const LevelFields& level;
    const ZoneView& zone;
    PlotView& plotView;
    DataLink& dt_1;
    Queries& queries;
    Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the view, and offers it as an output.
  explicit ZoneCommands(const Sees& sees);

  /// `zoomLevel` is the lowest concentration of the levels that are mapped, 5 when none is. `plotLevel` is the same, or
  /// -1.
  void zoneOuterLevel();

 private:
  void open();
  void Form_Load();
  void Form_Activate();
  void takeSettings();
  void wndsld1_Change();
  void NorthSld_Change();
  void zonsplot_Click(int level);
  void choose(int level, bool mapped);
  /// All that can be drawn.
  void chooseLevels();
  void sclenotxt_LostFocus();
  void DwgOnPic_Click();
  void clsfrm1_Click();
  void closeLink();
  /// However the view was closed, the user has one to work in.
  void goBack();

  void pointer(const PointerEvent& pointer);
  void press(const PointerEvent& pointer);
  void drag(const PointerEvent& pointer);
  void key(const KeyEvent& key);
  bool isInDialArea(double x, double y) const;

  enum class Dragged : std::uint8_t { none, wind, north };

  Sees sees_;
  const ZoneView& view_;
  WindDirection wind_;
  Dragged dragged_ = Dragged::none;
};

}  // namespace noldarz
