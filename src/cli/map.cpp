#include "cli/map.h"

#include <cmath>
#include <deque>
#include <ostream>

#include "cli/points.h"
#include "mapping/cad_mapping.h"
#include "platform/cad/dxf_drawing.h"
#include "platform/cad/dxf_text.h"
#include "platform/quiet_desktop.h"
#include "platform/text.h"
#include "platform/visible_text.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

/// What the user at the screen would do: choose the drawing, pick the points, ask for more while there are some.
class MapUser : public QuietDesktop, public CadScreen {
 public:
  MapUser(fs::path drawing, std::deque<GivenPoint> picks) : file_(std::move(drawing)), picks_(std::move(picks)) {}

  fs::path fileDialog(const FileDialog&) override { return file_; }
  Reply messageBox(const MessageBox& box) override {
    if (box.buttons == Buttons::yesNo) return picks_.empty() ? Reply::no : Reply::yes;
    return QuietDesktop::messageBox(box);
  }
  void show(const std::shared_ptr<DxfDrawing>& drawing) override { drawing_ = drawing; }
  CadPoint pickPoint(DxfDrawing&) override {
    if (picks_.empty()) throw CadFailure("There is no point left.", FailureNumber::cancelled);
    const GivenPoint point = picks_.front();
    picks_.pop_front();
    return {point.x, point.y, 0};
  }
  void redraw(DxfDrawing&) override {}
  void drop(DxfDrawing&) override {}
  void quit() override {}

  DxfDrawing* drawing() const { return drawing_.get(); }
  bool hasPicks() const { return !picks_.empty(); }

 private:
  fs::path file_;
  std::deque<GivenPoint> picks_;
  std::shared_ptr<DxfDrawing> drawing_;
};

/// The mapping on a zone view and a state of its own.
class Mapper {
 public:
  Mapper(System& system, const Folders& folders, const MapRequest& request, std::deque<GivenPoint> picks)
      : request_(request),
        engine_(static_cast<const EngineState&>(system.state())),
        zone_(views_),
        level_(system.mainView().level),
        user_(request.drawing, std::move(picks)),
        cad_(user_, [folders] { return namedConverter(folders); }),
        status_(zone_.statuslbl),
        plume_({.model = engine_,
                .query = engine_,
                .in = system.mainView().in,
                .level = level_,
                .result = system.mainView().result}),
        mapping_({.plot = plot_,
                  .clicks = plot_,
                  .cadState = cadState_,
                  .model = engine_,
                  .query = engine_,
                  .scenario = scenario_,
                  .in = system.mainView().in,
                  .level = level_,
                  .project = system.mainView().project,
                  .zone = zone_,
                  .plume = plume_,
                  .outputs = outputs_,
                  .folders = folders,
                  .cad = cad_,
                  .desktop = user_,
                  .status = status_}) {}

  /// Empty, or why there is no new drawing.
  std::string map() {
    zone_.view.show();
    bool any = false;
    for (int i = 0; i < levelCount; ++i) {
      zone_.zone.zonsplot[i].setValue(isDrawable(level_, i) ? 1 : 0);
      any = any || isDrawable(level_, i);
    }
    if (!any) return "no level has a begin and an end";
    plot_.windDeg = request_.wind;
    zone_.wnddeg.setCaption(plainText(request_.wind));
    scenario_.mapScale = rounded(strictNumber(request_.scale), 2);
    mapping_.opndwg2();
    if (user_.said().empty()) mapping_.getcoords();
    cadState_.sourceSet = 1;  // the zones have marked it
    if (user_.said().empty() && user_.hasPicks()) mapping_.getcoords_1();
    if (!user_.said().empty()) return user_.said() + (status_.happened().empty() ? "" : " " + status_.happened());
    user_.drawing()->saveAs(request_.file);
    return "";
  }

 private:
  const MapRequest& request_;
  EngineState engine_;
  PlotRunState plot_;
  ScenarioState scenario_;
  CadState cadState_;
  Outputs outputs_;
  Views views_;
  ZoneView zone_;
  const LevelFields& level_;
  MapUser user_;
  DxfCad cad_;
  StatusLine status_;
  PlumeModel plume_;
  CadMapping mapping_;
};

/// Why the request can't be taken; empty when it can. The points that are to be picked go to `picks`.
std::string refusal(const MapRequest& request, std::deque<GivenPoint>& picks) {
  const auto isDrawing = [](const fs::path& file) {
    return isDwgName(file) || lowerCase(file.extension().string()) == ".dxf";
  };
  if (request.drawing.empty()) return "--drawing: no file is named";
  if (!isDrawing(request.file)) return "-o: \"" + request.file.string() + "\" is to be named .dxf or .dwg";
  const auto source = pointOf(request.at);
  if (!source) return "--at: \"" + request.at + "\" is no point: X,Y in drawing units";
  const ParsedNumber scale = parseNumber(request.scale);
  if (!scale.isNumber() || rounded(scale.value, 2) <= 0)
    return "--scale: \"" + request.scale + "\" is no number of drawing units per metre, 0.01 at least";
  std::vector<GivenPoint> places;
  if (!request.locations.empty())
    if (std::string fault = readPoints(request.locations, nullptr, pointOf, "point: X,Y in drawing units", places);
        !fault.empty())
      return fault;
  for (const GivenPoint& place : places)
    if (rounded(std::hypot(place.x - source->x, place.y - source->y), 2) == 0)
      return request.locations + ": " + plainText(place.x) + "," + plainText(place.y) +
             " is the source, where there is no concentration";
  picks.assign(places.begin(), places.end());
  picks.push_front(*source);
  return "";
}

}  // namespace

ExitStatus mapIntoDrawing(const MapRequest& request, std::ostream& errors, const Folders& folders) {
  std::deque<GivenPoint> picks;
  if (const std::string fault = refusal(request, picks); !fault.empty()) {
    errors << visibleText(fault) << '\n';
    return ExitStatus::refused;
  }
  MapRequest absolute = request;  // the program enters another folder
  absolute.drawing = fs::absolute(request.drawing);
  absolute.file = fs::absolute(request.file);
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) -> std::string {
    if (!run.fault.empty()) return run.fault;
    try {
      return Mapper{run.session->system(), folders, absolute, picks}.map();
    } catch (const CadFailure& failure) {
      return failure.what();
    }
  });
}

}  // namespace noldarz
