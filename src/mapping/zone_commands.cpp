#include "mapping/zone_commands.h"

#include <algorithm>
#include <array>

#include "platform/failure.h"
#include "platform/text.h"
#include "study/row_edit.h"

namespace noldarz {

namespace {

constexpr Colour unmappedText = SystemColour::disabledText;
constexpr Colour mappedText = SystemColour::buttonText;

/// Whether the text can be drawing units per metre.
bool isScale(const Field& text) { return text.isNumeric() && rounded(text.number(), 2) > 0; }

}  // namespace

ZoneCommands::ZoneCommands(const Sees& sees)
    : sees_(sees),
      view_(sees.zone),
      wind_({.state = sees.plot,
             .arm = sees.zone.dial,
             .slider = sees.zone.zone.wndsld1,
             .caption = sees.zone.wnddeg,
             .tell = [status = &sees.status](const std::string& text) { status->say(text); },
             .settings = sees.settings}) {
  View& view = view_.ground.view();
  view.onLoad([this] { Form_Load(); });
  view.onFront([this] { Form_Activate(); });
  view.onClosing([this] { closeLink(); });
  view.onClose([this] { goBack(); });
  view.on(view_.zone.wndsld1, Event::change, [this] { wndsld1_Change(); });
  view.on(view_.zone.NorthSld, Event::change, [this] { NorthSld_Change(); });
  for (int i = 0; i < levelCount; ++i) view.on(view_.zone.zonsplot[i], Event::click, [this, i] { zonsplot_Click(i); });
  view.on(view_.sclenotxt, Event::lostFocus, [this] { sclenotxt_LostFocus(); });
  view.on(view_.DwgOnPic, Event::click, [this] { DwgOnPic_Click(); });
  view.on(view_.Image1, Event::dblClick, [this] { DwgOnPic_Click(); });
  view.on(view_.clsfrm1, Event::click, [this] { clsfrm1_Click(); });
  view.onPointer(view_.ground, [this](const PointerEvent& event) { pointer(event); });
  view.onKey(view_.ground, [this](const KeyEvent& event) { key(event); });
  sees_.dt_1.bind(view_.sclenotxt, "sclenotxt");
  sees_.outputs.attach(AttachedView::zardzone, view);
  sees_.outputs.offer(Output::zones, [this] { open(); });
}

void ZoneCommands::open() {
  sees_.passes.widthIdx = 1;
  if (view_.ground.view().loaded()) chooseLevels();
  sees_.mainView.hide();
  view_.ground.view().show();
}

void ZoneCommands::Form_Load() {
  dragged_ = Dragged::none;
  chooseLevels();
  view_.zone.PlotFtlyInjryLmt.setValue(0);
  view_.statuslbl.setCaption("");
  const Trap skipping = sees_.status.skipping();
  if (sees_.study.dbPath.empty()) return;  // no study is open
  sees_.dt_1.setDatabaseName(sees_.study.dbPath);
  skipping.steps([this] { sees_.queries.use(sees_.dt_1, &Queries::buildQryOrg, sees_.study.qryOrg); },
                 [this] { sees_.dt_1.refresh(); });
  if (isScale(view_.sclenotxt)) sees_.scenario.mapScale = rounded(view_.sclenotxt.number(), 2);
}

void ZoneCommands::closeLink() {
  silently([this] {
    try {
      sees_.dt_1.close();
    } catch (const RuntimeFailure& failure) {
      sees_.status.tellFault("Not stored: " + sees_.dt_1.pendingEdits() + ". " + failure.what());
      sees_.dt_1.abandon();
    }
  });
}

void ZoneCommands::goBack() {
  sees_.clicks.dialReopen = false;
  const bool hidden = sees_.mainView.loaded() && !sees_.mainView.visible() && !sees_.mainView.closing();
  if (hidden && !sees_.plotView.view.visible()) sees_.mainView.show();
}

void ZoneCommands::Form_Activate() {
  zoneOuterLevel();
  for (int i = 0; i < levelCount; ++i)
    view_.zone.zonsplot[i].setCaption(sees_.level.conclbl[i].caption() + " Dist. : " + sees_.level.endpt[i].text() +
                                      " m");
  Trap{[this](const RuntimeFailure&) {
    sees_.desktop.messageBox(information("Failed to get source points./Open file again."));
    view_.getcoords.disable();
    view_.getcoords_1.disable();
    view_.actdoctxt.setCaption("");
  }}.step([this] { takeSettings(); });
}

void ZoneCommands::takeSettings() {
  Field& wind = view_.zone.wndsld1;
  const int degrees = toInteger(wind_.kept());
  if (!wind.isInRange(degrees)) fail(FailureNumber::invalidArgument);
  wind.setValue(degrees);
  wind_.show(degrees);
  sees_.plot.windDeg = degrees;
  view_.zone.NorthSld.setValue(toInteger(sees_.plot.northDeg));
  view_.rotdeg.setCaption(plainText(sees_.plot.northDeg));
  view_.dial.showNorth(sees_.plot.northDeg);
}

void ZoneCommands::zoneOuterLevel() {
  int outer = levelCount - 1;
  while (outer >= 0 && view_.zone.zonsplot[outer].value() != 1) --outer;
  sees_.query.plotLevel = static_cast<std::int16_t>(outer);
  sees_.plot.zoomLevel = static_cast<std::int16_t>(outer < 0 ? levelCount - 1 : outer);
}

void ZoneCommands::wndsld1_Change() {
  sees_.plotView.fields.canvas.Cls();
  wind_.wndsld1_Change();
}

void ZoneCommands::NorthSld_Change() {
  const int degrees = view_.zone.NorthSld.value();
  view_.dial.showNorth(degrees);
  view_.rotdeg.setCaption(plainText(degrees));
  sees_.plot.northDeg = degrees;
  sees_.plotView.fields.canvas.Cls();
}

void ZoneCommands::chooseLevels() {
  for (int i = 0; i < levelCount; ++i) choose(i, isDrawable(sees_.level, i));
}

void ZoneCommands::choose(int level, bool mapped) {
  Field& box = view_.zone.zonsplot[level];
  box.setValue(mapped ? 1 : 0);
  box.setForeColour(mapped ? mappedText : unmappedText);
}

void ZoneCommands::zonsplot_Click(int level) {
  choose(level, view_.zone.zonsplot[level].value() == 1);
  sees_.plotView.fields.canvas.Cls();
  zoneOuterLevel();
}

void ZoneCommands::sclenotxt_LostFocus() {
  Field& scale = view_.sclenotxt;
  if (!isScale(scale)) {
    sees_.desktop.messageBox(information("Enter number."));
    scale.setFault("Enter number.");
    silently([&] { sees_.desktop.setFocus(scale); });
    return;
  }
  sees_.scenario.mapScale = rounded(scale.number(), 2);
  scale.setText(plainText(sees_.scenario.mapScale));
  if (sees_.dt_1.hasRow()) RowEdit{sees_.dt_1, sees_.status.skipping()}.set("sclenotxt", scale.text()).storeOrDrop();
}

void ZoneCommands::DwgOnPic_Click() {
  PlotView& plot = sees_.plotView;
  plot.view.show();
  plot.menu.insrtdwg.enable();
  plot.menu.Drwzns.enable();
  view_.ground.view().hide();
  plot.fields.canvas.setFontTransparent(false);
}

void ZoneCommands::clsfrm1_Click() {
  View& view = view_.ground.view();
  if (sees_.clicks.dialReopen) {
    view.hide();
    sees_.clicks.dialReopen = false;
    return;
  }
  sees_.plotView.view.close();  // which shows this view again
  view.close();
  sees_.mainView.show();
  sees_.trace.traceRubber = 0;
}

bool ZoneCommands::isInDialArea(double x, double y) const {
  const Field& circle = view_.cirOrintn_1;
  return x >= circle.left() - 25 && x <= circle.left() + 2025 && y <= circle.top() + 1840;
}

void ZoneCommands::pointer(const PointerEvent& event) {
  switch (event.act) {
    case PointerEvent::Act::down: return press(event);
    case PointerEvent::Act::move: return drag(event);
    case PointerEvent::Act::up: dragged_ = Dragged::none; return;
    case PointerEvent::Act::twice: return;
  }
}

void ZoneCommands::press(const PointerEvent& event) {
  if (!isInDialArea(event.x, event.y))
    dragged_ = Dragged::none;
  else
    dragged_ = view_.dial.NorthArm.isUnder(event.x, event.y) ? Dragged::north : Dragged::wind;
}

void ZoneCommands::drag(const PointerEvent& event) {
  const bool onNorth = view_.dial.NorthArm.isUnder(event.x, event.y);
  view_.dial.NorthArm.showGrip(onNorth);
  view_.dial.wndarm.showGrip(!onNorth && view_.dial.wndarm.isUnder(event.x, event.y));
  if (dragged_ == Dragged::none || !isInDialArea(event.x, event.y)) return;
  turnDial(dragged_ == Dragged::wind ? view_.zone.wndsld1 : view_.zone.NorthSld,
           dialDegrees(event.x, event.y, view_.dial.size.centreX, view_.dial.size.centreY));
}

void ZoneCommands::key(const KeyEvent& event) {
  constexpr std::string_view ofNorth{"Shift+"};
  static constexpr std::array<std::pair<std::string_view, int>, 6> steps{
      {{"Left", -1}, {"Down", -1}, {"Right", 1}, {"Up", 1}, {"PageDown", -10}, {"PageUp", 10}}};
  const bool north = event.name.starts_with(ofNorth);
  const std::string_view name = std::string_view{event.name}.substr(north ? ofNorth.size() : 0);
  Field& slider = north ? view_.zone.NorthSld : view_.zone.wndsld1;
  for (const auto& [key, step] : steps)
    if (key == name) return turnDial(slider, (slider.value() + step + wholeTurn) % wholeTurn);
}

}  // namespace noldarz
