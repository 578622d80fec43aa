// Maps the zones into a CAD drawing: one outline and one circle a level, to scale and turned to the wind, and places
// with their distance, concentration and hazard. It drives the drawing through its port alone (platform/cad/drawing.h).
//
// The drawing's units: x and y as the user picks them, s = `mapScale` of them a metre, z = the height of simulation
// times s.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "engine/plume_model.h"
#include "mapping/state.h"
#include "mapping/zone_view.h"
#include "platform/cad/drawing.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/status_line.h"
#include "plot/state.h"
#include "scenario/state.h"
#include "study/fields.h"
#include "study/outputs.h"

namespace noldarz {

class CadMapping {
 public:
  struct Sees {
    PlotState& plot;
    ClickState& clicks;
    CadState& cadState;
    ModelState& model;
    PointQueryState& query;
    const ScenarioState& scenario;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ProjectFields& project;
    const ZoneView& zone;
    PlumeModel& plume;
    const Outputs& outputs;
    const Folders& folders;
    Cad& cad;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the commands of the zone view that concern a drawing.
  explicit CadMapping(const Sees& sees);

  /// Opens a drawing that the user chooses.
  void opndwg2();
  /// The same with a new empty one.
  void nwdrg();
  /// Lets the user pick the source, and maps the zones there.
  void getcoords();
  /// Lets the user pick the source, unless it is set, and places, which are marked with what arrives there.
  void getcoords_1();
  /// Maps the zones at the source in `coordx` and `coordy`. False when a box has told why not.
  bool Drw1();
  /// The plot view, which shares the source and the mode of the point query, has again what it had before the drawing
  /// was worked in.
  void giveBackPlot();

 private:
  /// The scenario text and the line that leads to it.
  struct RunMark {
    CadEntity& text;
    CadEntity& line;
  };
  struct PlotBefore {
    double sourceX;
    double sourceY;
    std::int16_t drawMode;
    std::int16_t isoElevate;
  };
  /// One side of an outline, between two distances (m).
  struct Leg {
    double from;
    double to;
    double step;
    int side;           ///< 1: left of the wind, -1: right
    std::int16_t flat;  ///< the point at which it is 0 wide, beside that at the far end
  };

  /// A command begins: nothing is told yet, and what the plot view shares is kept.
  void begin();
  void Drw1_Click() { Drw1(); }
  void Form_Load();
  void Form_Unload();
  void enablePicking(bool enabled) const;
  /// Lets the user choose `drawFile`.
  void chooseFile(FileDialog::Kind kind, const char* title) const;
  /// Opens `drawFile`. False when a box has told why not.
  bool cadAttach();
  CadDrawing& drawing() const;
  /// The user's point, shown as the source.
  void pickSource() const;
  /// The source as it is shown.
  void takeSource() const;
  CadPoint source(double z) const { return {sees_.plot.sourceX, sees_.plot.sourceY, z}; }
  void useLayer(const char* name);
  RunMark markRun(double fromZ) const;
  /// Of the levels that are mapped (drawing units). Fails, before anything is drawn, for one that has no end point.
  std::array<std::optional<double>, levelCount> circleRadii() const;
  /// False when a box has told why not.
  bool cadZones();
  bool isOutlined(int level) const;
  CadSpline& addOutline(int level);
  void addLeg(const Leg& leg);
  /// Closes and turns an outline, and shows its area; what fails is passed over.
  void finish(CadSpline& outline, int level) const;
  void markSource();
  void markLocation();
  bool wantsMore() const;
  void noteCompletion() const;
  void failPicking(const RuntimeFailure& failure) const;
  void tell(const RuntimeFailure& failure) const;

  double s() const { return sees_.scenario.mapScale; }
  double z() const { return checked(sees_.in.htsmul.number() * s()); }
  View& view() const { return zone_.ground.view(); }

  Sees sees_;
  const ZoneView& zone_;
  std::shared_ptr<CadDrawing> cadDoc_;
  CadLayer* cadLayer_ = nullptr;
  std::optional<PlotBefore> plotBefore_;
  std::size_t pointsStored_ = 0;  // numbers in `splinePts`
};

/// The program that the user has named to convert a DWG (platform/cad/dwg.h); empty when there is none.
std::string namedConverter(const Folders& folders);

}  // namespace noldarz
