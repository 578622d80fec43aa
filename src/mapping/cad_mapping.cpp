#include "mapping/cad_mapping.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/settings.h"
#include "platform/text.h"
#include "plot/location_query.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

constexpr const char* textLayer = "Conc Zones1 Text";
constexpr const char* zoneLayer = "Conc Zones1";
constexpr int textLayerColour = 5;
constexpr int zoneLayerColour = 40;
constexpr int foreground = 7;                                          // stands out from any background
constexpr std::array<int, levelCount> levelIndices{1, 6, 5, 4, 3, 3};  // colours of the levels

constexpr double textHeight = 10;            // drawing units
constexpr double lineSpacing = 15;           // of the texts at a location (drawing units)
constexpr double turnRadian = 57.3;          // degrees, where an outline is turned
constexpr double radiansPerDegree = 0.0175;  // where the text at its tip is placed
constexpr std::int16_t tip = 11;             // point of an outline at its far end

constexpr int modelSpace = 1;

constexpr const char* saveNote = "After mapping you must save the AutoCad file before closing this dialog box";
constexpr const char* filter = "Auto CAD (*.dwg)|*.dwg|Drawing exchange format (*.dxf)|*.dxf";

int colourOf(int level) { return levelIndices.at(static_cast<std::size_t>(level)); }

}  // namespace

CadMapping::CadMapping(const Sees& sees) : sees_(sees), zone_(sees.zone) {
  view().onLoad([this] { Form_Load(); });
  view().onClose([this] { Form_Unload(); });
  const std::array<std::pair<Field*, void (CadMapping::*)()>, 5> commands{
      {{&zone_.opndwg2, &CadMapping::opndwg2},
       {&zone_.nwdrg, &CadMapping::nwdrg},
       {&zone_.getcoords, &CadMapping::getcoords},
       {&zone_.getcoords_1, &CadMapping::getcoords_1},
       {&zone_.Drw1, &CadMapping::Drw1_Click}}};
  for (const auto& [button, command] : commands)
    view().on(*button, Event::click, [this, command = command] { (this->*command)(); });
}

void CadMapping::Form_Load() {
  sees_.cadState.sourceSet = 0;
  for (Field* shown : {&zone_.coordx, &zone_.coordy, &zone_.actdoctxt}) shown->setCaption("");
  zone_.sveflnote.setCaption(std::string{saveNote} + ".");
  enablePicking(false);
}

void CadMapping::begin() {
  sees_.status.say("");
  if (!plotBefore_)
    plotBefore_ = PlotBefore{sees_.plot.sourceX, sees_.plot.sourceY, sees_.query.drawMode, sees_.query.isoElevate};
}

void CadMapping::giveBackPlot() {
  if (!plotBefore_) return;
  sees_.plot.sourceX = plotBefore_->sourceX;
  sees_.plot.sourceY = plotBefore_->sourceY;
  sees_.query.drawMode = plotBefore_->drawMode;
  sees_.query.isoElevate = plotBefore_->isoElevate;
  plotBefore_.reset();
}

void CadMapping::Form_Unload() {
  giveBackPlot();
  if (cadDoc_) silently([this] { cadDoc_->quit(); });
  cadLayer_ = nullptr;
  cadDoc_.reset();
}

void CadMapping::enablePicking(bool enabled) const {
  zone_.getcoords.setEnabled(enabled);
  zone_.getcoords_1.setEnabled(enabled);
}

void CadMapping::chooseFile(FileDialog::Kind kind, const char* title) const {
  const FileDialog dialog{.kind = kind, .title = title, .filter = filter, .name = "", .extension = "dwg"};
  sees_.clicks.drawFile = sees_.desktop.fileDialog(dialog).string();
}

void CadMapping::opndwg2() {
  begin();
  Trap{[this](const RuntimeFailure&) { enablePicking(false); }}.step([this] {
    chooseFile(FileDialog::Kind::open, "QUENDARIS: Open AutoCad Drawing");
    if (cadAttach()) enablePicking(true);
  });
}

void CadMapping::nwdrg() {
  begin();
  Trap{[this](const RuntimeFailure& failure) {
    tell(failure);
    sees_.desktop.messageBox(information("Failed to open AutoCAD drawing."));
  }}.step([this] {
    chooseFile(FileDialog::Kind::save, "QUENDARIS: Save AutoCad Drawing");
    sees_.cad.copyDrawing(sees_.folders.program / "AutoCadVBA" / "AutocadDwg1.dwg", sees_.clicks.drawFile);
    if (!cadAttach()) return;
    enablePicking(true);
    view().show();
    cadDoc_->setActiveSpace(modelSpace);
  });
}

bool CadMapping::cadAttach() {
  const fs::path file = sees_.clicks.drawFile;
  const auto attach = [this](std::shared_ptr<CadDrawing> drawing) {
    drawing->setVisible();
    drawing->fullName();
    if (drawing != cadDoc_) sees_.cadState.sourceSet = 0;  // a source of another drawing is none of this one
    cadDoc_ = std::move(drawing);
    cadLayer_ = nullptr;
  };
  bool attached = true;
  Trap{[&](const RuntimeFailure&) {
    Trap{[&](const RuntimeFailure& failure) {
      sees_.desktop.messageBox({failure.what()});
      attached = false;
    }}.step([&] { attach(sees_.cad.createObject(file.string())); });
  }}.step([&] { attach(sees_.cad.getObject(file)); });
  if (!attached) return false;
  cadDoc_->setActiveSpace(modelSpace);
  zone_.actdoctxt.setCaption(cadDoc_->name());
  view().show();
  return true;
}

CadDrawing& CadMapping::drawing() const {
  if (!cadDoc_) throw CadFailure("No drawing is open: open one, or a blank one.");
  return *cadDoc_;
}

void CadMapping::pickSource() const {
  const CadPoint point = drawing().getPoint();
  zone_.coordx.setCaption(plainText(point.x));
  zone_.coordy.setCaption(plainText(point.y));
}

void CadMapping::takeSource() const {
  if (zone_.coordx.caption().empty()) throw CadFailure("The source point is not set.");
  sees_.plot.sourceX = rounded(strictNumber(zone_.coordx.caption()), 2);
  sees_.plot.sourceY = rounded(strictNumber(zone_.coordy.caption()), 2);
}

void CadMapping::useLayer(const char* name) {
  cadLayer_ = &drawing().addLayer(name);
  drawing().setActiveLayer(*cadLayer_);
}

void CadMapping::getcoords() {
  begin();
  Trap{[this](const RuntimeFailure& failure) { failPicking(failure); }}.step([this] {
    view().hide();
    pickSource();
    if (Drw1()) noteCompletion();
  });
}

void CadMapping::failPicking(const RuntimeFailure& failure) const {
  tell(failure);
  sees_.desktop.messageBox(critical("Failed to get source points./Open file again."));
  zone_.sveflnote.setCaption(saveNote);
  view().show();
  enablePicking(false);
  zone_.actdoctxt.setCaption("");
}

bool CadMapping::Drw1() {
  begin();
  bool mapped = false;
  Trap{[this](const RuntimeFailure& failure) {
    tell(failure);
    sees_.desktop.messageBox(critical("Failed to map hazard zones. Check AUTOCAD version."));
    zone_.sveflnote.setCaption(saveNote);
    view().show();
  }}.step([&] {
    // The width of the cloud is asked for, whatever was drawn or asked before.
    sees_.query.drawMode = sees_.query.isoElevate = 0;
    CadDrawing& drawing = this->drawing();
    takeSource();
    const auto radii = circleRadii();
    useLayer(textLayer);
    const auto& [text, line] = markRun(z());
    cadLayer_->setColor(textLayerColour);
    text.setColor(foreground);
    line.setColor(foreground);
    for (int level = levelCount - 1; level >= 0; --level) {
      sees_.query.plotLevel = static_cast<std::int16_t>(level);
      if (const auto radius = radii.at(static_cast<std::size_t>(level)))
        drawing.addCircle(source(z()), *radius).setColor(colourOf(level));
    }
    useLayer(zoneLayer);
    CadEntity& circle = drawing.addCircle(source(z()), s());
    cadLayer_->setColor(zoneLayerColour);
    circle.setColor(foreground);
    mapped = cadZones();
  });
  return mapped;
}

CadMapping::RunMark CadMapping::markRun(double fromZ) const {
  constexpr double leader = 2.5;  // m, to the right and up
  sees_.cadState.cadText = sees_.project.scnrotxtlbl.caption();
  sees_.cadState.textHeight = textHeight;
  const CadPoint end{sees_.plot.sourceX + leader * s(), sees_.plot.sourceY + leader * s(), z()};
  CadEntity& line = drawing().addLine(source(fromZ), end);
  return {drawing().addText(sees_.cadState.cadText, end, sees_.cadState.textHeight), line};
}

std::array<std::optional<double>, levelCount> CadMapping::circleRadii() const {
  std::array<std::optional<double>, levelCount> radii;
  for (int level = 0; level < levelCount; ++level) {
    const Field& end = sees_.level.endpt[level];
    if (zone_.zone.zonsplot[level].value() == 0) continue;
    if (!end.isNumeric() || !(end.number() > 0))
      throw CadFailure("The level " + sees_.level.conclbl[level].caption() + " has no end point: switch it off.",
                       FailureNumber::typeMismatch);
    radii.at(static_cast<std::size_t>(level)) = checked(end.number() * s());
  }
  return radii;
}

bool CadMapping::cadZones() {
  bool drawn = false;
  bool failed = false;
  const StatusLine::Act act{sees_.status};
  const Trap failing{[&](const RuntimeFailure& failure) {
    if (drawn) {  // the other levels go on, but nobody may miss this one
      const std::string& caption = sees_.level.conclbl[sees_.query.plotLevel].caption();
      return sees_.status.say("Not mapped: " + caption + " " + failure.what() + ".");
    }
    if (std::exchange(failed, true)) return;
    tell(failure);
    sees_.desktop.messageBox(information("Unable to plot Hazard Zones."));
    view().show();
    sees_.outputs.close(AttachedView::chldfrm);
  }};
  for (int level = levelCount - 1; level >= 0 && !failed; --level) {
    sees_.query.plotLevel = static_cast<std::int16_t>(level);
    sees_.cadState.splineIdx = 0;
    if (!isOutlined(level)) continue;
    failing.step([&] {
      CadSpline& outline = addOutline(level);
      drawn = true;
      finish(outline, level);
    });
  }
  if (failed) return false;
  sees_.cadState.splineIdx = 0;
  const Trap last = drawn ? Trap::ignoring() : failing;
  last.steps([this] { drawing().updateApplication(); }, [this] { drawing().regen(); });
  if (failed) return false;
  view().show();
  return true;
}

bool CadMapping::isOutlined(int level) const {
  const std::string& begin = sees_.level.bgnpt[level].text();
  return begin != mark::notApplicable && begin != ">" + sees_.in.enddisttxt.text() && begin != "0" &&
         zone_.zone.zonsplot[level].value() != 0;
}

CadSpline& CadMapping::addOutline(int level) {
  CadState& state = sees_.cadState;
  state.splinePts.fill(0);
  pointsStored_ = 0;
  const double step = rounded(checked(sees_.level.isoplngt[level].number() / 10), 3);
  const double begin = rounded(sees_.level.bgnpt[level].number(), 3);
  const double end = sees_.level.endpt[level].number();
  state.splineIdx = 1;
  addLeg({.from = begin, .to = rounded(end, 3), .step = step, .side = -1, .flat = 1});
  state.cadText = " " + Format(end, "0.00") + " m";
  const double wind = sees_.plot.windDeg * radiansPerDegree;
  drawing().addText(
      state.cadText,
      {std::sin(wind) * end * s() + sees_.plot.sourceX, std::cos(wind) * end * s() + sees_.plot.sourceY, s()},
      state.textHeight);
  state.splineIdx = tip;
  addLeg({.from = rounded(end, 3), .to = begin, .step = -step, .side = 1, .flat = 2 * tip});
  CadSpline& outline = drawing().addSpline(state.splinePts, {}, {});
  outline.setColor(colourOf(level));
  return outline;
}

void CadMapping::addLeg(const Leg& leg) {
  ModelState& model = sees_.model;
  CadState& state = sees_.cadState;
  for (model.distAt = leg.from; leg.step < 0 ? model.distAt >= leg.to : model.distAt <= leg.to;
       model.distAt += leg.step) {
    double w = 0;
    if (state.splineIdx != leg.flat && state.splineIdx != tip) {
      model.halfWidthAtRounded = 0;
      sees_.plume.calcHalfWidthAt();
      w = model.halfWidthAtRounded;
    }
    if (pointsStored_ + 3 > state.splinePts.size())
      throw CadFailure("The outline of a zone has more points than it takes.");
    for (const double number : {model.distAt * s() + sees_.plot.sourceX, sees_.plot.sourceY + leg.side * w * s(), z()})
      state.splinePts.at(pointsStored_++) = checked(number);
    ++state.splineIdx;
  }
}

void CadMapping::finish(CadSpline& outline, int level) const {
  constexpr int lastFit = 20;
  constexpr int besideFirst = 1;  // control points
  constexpr int second = 2;
  constexpr int besideLast = 21;
  const auto& points = sees_.cadState.splinePts;
  double bulge = 0;
  silently([&] { outline.deleteFitPoint(lastFit + 1); },
           [&] { bulge = checked(sees_.level.isopwdth[level].number() * 0.085 * s()); },
           [&] { outline.getFitPoint(lastFit); },
           [&] {
             outline.setFitPoint(lastFit, {points[0], points[1], z()});
           },
           [&] { outline.getControlPoint(second); },
           [&] {
             outline.setControlPoint(besideFirst, {points[0], points[1] - bulge, z()});
           },
           [&] { outline.getControlPoint(second); },
           [&] {
             outline.setControlPoint(besideLast, {points[0], points[1] + bulge, z()});
           },
           [&] {
             const double angle = 90 / turnRadian - strictNumber(zone_.wnddeg.caption()) / turnRadian;
             outline.rotate({strictNumber(zone_.coordx.caption()), strictNumber(zone_.coordy.caption()), z()}, angle);
           },
           [&] { sees_.level.isoparea[level].setText(Format(outline.area() * 0.0001, "0.000")); },
           [&] { outline.update(); });
}

void CadMapping::getcoords_1() {
  begin();
  Trap{[this](const RuntimeFailure& failure) { failPicking(failure); }}.step([this] {
    do {
      view().hide();
      sees_.cadState.textHeight = textHeight;
      if (sees_.cadState.sourceSet == 0) markSource();
      markLocation();
    } while (wantsMore());
    noteCompletion();
    view().show();
  });
}

void CadMapping::markSource() {
  pickSource();
  takeSource();
  useLayer(textLayer);
  cadLayer_->setColor(textLayerColour);
  const double height = sees_.in.htsmul.number();  // not to scale
  CadEntity& circle = drawing().addCircle(source(height), s());
  const auto& [text, line] = markRun(height);
  for (CadEntity* entity : {&circle, &line, &text}) entity->setColor(foreground);
  sees_.cadState.sourceSet = 1;
  sees_.desktop.messageBox(information("Select Location points for Concentration"));
}

void CadMapping::markLocation() {
  takeSource();  // a plot may have had one of its own meanwhile
  const CadPoint point = drawing().getPoint();
  const double away = rounded(std::abs(std::hypot(sees_.plot.sourceY - point.y, sees_.plot.sourceX - point.x)), 2);
  if (away == 0) throw CadFailure("There is no concentration on the source itself.", FailureNumber::divisionByZero);
  sees_.model.distAt = checked(away / divisor(s()));
  sees_.query.drawMode = drawMode::location;
  sees_.plume.calcHalfWidthAt();
  const double conc = sees_.model.concAt;
  for (int level = 2; level < levelCount; ++level) sees_.level.constn[level].number();  // each is compared with it

  useLayer(textLayer);
  drawing().addCircle({point.x, point.y, z()}, 1).setColor(foreground);
  const std::string concentration = "  Conc.: " + Format(conc, "0.00") + " ppm";
  const auto hazards = hazardLines(conc, sees_.level);
  const std::array<std::string, 3> lines{"  Distance : " + plainText(sees_.model.distAt) + " m",
                                         concentration,
                                         hazards.empty() ? concentration : std::string{hazards.back()}};
  double y = point.y;
  for (const std::string& text : lines) {
    sees_.cadState.cadText = text;
    drawing().addText(text, {point.x, y, z()}, sees_.cadState.textHeight).setColor(foreground);
    y -= lineSpacing;
  }
}

bool CadMapping::wantsMore() const {
  return sees_.desktop.messageBox(question("Select another Location points for Concentration")) == Reply::yes;
}

void CadMapping::noteCompletion() const {
  zone_.sveflnote.setCaption("Mapping completed, save the AutoCad file " + zone_.actdoctxt.caption() +
                             " before closing this dialog box");
}

std::string namedConverter(const Folders& folders) {
  return Settings{folders.configuration}.get("noldarz", "drawing", "dwgConverter").value_or("");
}

void CadMapping::tell(const RuntimeFailure& failure) const {
  if (failure.reason() != FailureNumber::cancelled) sees_.status.say(failure.what());
}

}  // namespace noldarz
