#include "population/grid_commands.h"

#include <algorithm>
#include <exception>

#include "platform/failure.h"
#include "platform/text.h"
#include "population/density_entry.h"
#include "population/grid.h"

namespace noldarz {

namespace {

constexpr Colour lightGreen{192, 255, 192};
constexpr Colour lightBlue{207, 226, 246};
constexpr const char* dragTip = "Press Left Mouse key to change wind direction.";

}  // namespace

int savedSector(const Settings& settings) {
  return toInteger(
      strictNumber(settings.get(sectorSetting::application, sectorSetting::section, sectorSetting::key).value_or("0")));
}

GridCommands::GridCommands(const Sees& sees)
    : sees_(sees),
      view_(sees.view),
      wind_({.state = sees.wind,
             .arm = sees.view.wind,
             .slider = sees.view.wndsld1,
             .caption = sees.view.wnddeg,
             .tell = [status = &sees.status](const std::string& text) { status->say(text); },
             .settings = sees.settings}) {
  View& view = view_.view;
  view.onLoad([this] { Form_Load(); });
  view.onClosing([this] { closing(); });
  for (int i = 0; i < gridSectors; ++i) {
    view.on(view_.znePopdnsty[i], Event::gotFocus, [this, i] { znePopdnsty_GotFocus(i); });
    view.on(view_.znePopdnsty[i], Event::lostFocus, [this] { focusedSector_ = -1; });
    view.on(view_.znePopdnsty[i], Event::click, [this, i] { znePopdnsty_Click(i); });
  }
  for (int i = 0; i < gridBands; ++i) {
    view.on(view_.populatndnsty[i], Event::gotFocus, [this, i] { markBand(i); });
    view.on(view_.populatndnsty[i], Event::lostFocus, [this, i] { populatndnsty_LostFocus(i); });
  }
  view.on(view_.popdnstycbo, Event::gotFocus, [this] {
    if (!view_.imports()) markBand(classBand());
  });
  view.on(view_.popdnstycbo, Event::click, [this] {
    if (!view_.imports()) popdnstycbo_Click();
  });
  view.on(view_.wndsld1, Event::change, [this] { wind_.wndsld1_Change(); });
  view.on(view_.prvrpt1, Event::click, [this] { prvrpt1_Click(); });
  view.on(view_.clsfrm1, Event::click, [this] { close(); });
  view.onPointer(view_.PopdnstySector, [this](const PointerEvent& event) { pointer(event); });
  sees_.outputs.attach(AttachedView::absltftlyfrm, view);
  sees_.popdnsty.view().on(sees_.popdnsty, Event::click, [this] { view_.view.show(true); });
}

void GridCommands::Form_Load() {
  sees_.status.say("");
  sees_.state.dragging = 0;
  sees_.status.clearFault();
  focusedSector_ = -1;
  markBand(-1);
  for (int band = 0; band < gridBands; ++band) {
    view_.populatndnsty[band].setBackColour(SystemColour::windowBackground);
    view_.populatndnsty[band].setFault("");
  }
  takeWind();
  sees_.row.open();
  if (sees_.state.popViewOpened != 1)
    popSelectFirstSector();
  else
    sees_.row.bind(sees_.state.windOrient);
  sees_.row.requery();
  sees_.state.popViewOpened = 1;
  sees_.row.nameSector();  // a user begins at the sector that is chosen below, which is named when he comes to it
  markSector(sees_.row.sector());
  silently([this] { takeSavedSector(); });
}

void GridCommands::takeWind() const {
  silently([this] { sees_.wind.windDeg = wind_.kept(); }, [this] { view_.wind.showWind(sees_.wind.windDeg); });
  slideToWind();
}

void GridCommands::slideToWind() const {
  silently([this] {
    const int degrees = toInteger(sees_.wind.windDeg);
    if (!view_.wndsld1.isInRange(degrees)) fail(FailureNumber::invalidArgument);
    view_.wndsld1.setValue(degrees);
  });
  view_.wnddeg.setCaption(plainText(view_.wndsld1.value()));
}

void GridCommands::popSelectFirstSector() {
  for (int cell = 0; cell < view_.gridcell.size(); ++cell) {
    if (!Trap::ignoring().holds([&] { return sees_.row.density(cell) > 0; })) continue;
    sees_.state.windOrient = static_cast<std::int16_t>(sectorOf(cell));
    break;
  }
  sees_.row.bind(sees_.state.windOrient);
}

void GridCommands::takeSavedSector() {
  const int sector = savedSector(sees_.settings);
  if (!isSector(sector)) fail(FailureNumber::invalidArgument);
  sees_.state.sectorSaved = static_cast<std::int16_t>(sector);
  sees_.row.bind(sees_.state.sectorSaved);
  markSector(sees_.state.sectorSaved);
}

void GridCommands::markSector(int sector) const {
  for (int i = 0; i < gridSectors; ++i) {
    view_.znePopdnsty[i].setValue(i == sector ? 1 : 0);
    view_.sectorshp[i].setFillColour(i == sees_.row.sector() ? lightBlue : Colour{});
  }
}

void GridCommands::znePopdnsty_GotFocus(int sector) {
  focusedSector_ = sector;
  const bool chosen = view_.znePopdnsty[sector].value() == 1;
  if (chosen) {
    view_.zonenumlbl.setCaption("Population density/Ha for sector " + std::to_string(sector + 1));
    sees_.state.windOrient = static_cast<std::int16_t>(sector);
  }
  sees_.row.bind(sector);
  markSector(chosen ? sector : -1);
}

void GridCommands::znePopdnsty_Click(int sector) {
  markSector(sector);
  keepSector(sector);
  sees_.row.nameSector();
  if (sees_.state.popViewOpened == 1) sees_.state.windOrient = static_cast<std::int16_t>(sector);
  slideToWind();
  sees_.row.update();
  if (view_.converts()) sees_.status.say("A conversion turns the bands of the sector that it ends on.");
}

void GridCommands::keepSector(int sector) const {
  try {
    sees_.settings.set(sectorSetting::application, sectorSetting::section, sectorSetting::key, plainText(sector));
  } catch (const std::exception& error) {  // the sector holds until the view opens again
    sees_.status.say(std::string{"The sector is not kept: "} + error.what());
  }
}

void GridCommands::populatndnsty_LostFocus(int band) {
  if (!acceptsDensity(view_.populatndnsty[band], SystemColour::windowBackground, sees_.desktop)) return;
  sees_.state.windOrient = static_cast<std::int16_t>(band);
  sees_.row.enter(sees_.row.cellOf(band), view_.populatndnsty[band]);
}

void GridCommands::markBand(int band) const {
  for (int i = 0; i < gridBands; ++i) {
    view_.distlbl[i].setBackColour(i == band ? lightGreen : Colour{SystemColour::buttonFace});
    view_.ringshp[i].setFillColour(i == band ? lightGreen : Colour{});
  }
  if (band >= 0) view_.popdnstycbo.setToolTip("For option selected : " + view_.distlbl[band].caption());
}

int GridCommands::classBand() const {
  const int left = sees_.state.windOrient;
  return left >= 0 && left < gridBands ? left : 0;  // no band has the focus any more
}

void GridCommands::popdnstycbo_Click() const {
  const auto* chosen = std::find_if(settlementClasses.begin(), settlementClasses.end(), [this](const auto& entry) {
    return entry.name == view_.popdnstycbo.text();
  });
  if (chosen == settlementClasses.end()) return;
  const int cell = sees_.row.cellOf(classBand());
  const std::string density = plainText(chosen->density);
  if (sees_.row.store({{cell, density}})) sees_.status.say("Stored: " + GridRow::wordsOf(cell, density) + ".");
}

void GridCommands::pointer(const PointerEvent& event) {
  switch (event.act) {
    case PointerEvent::Act::down:
      if (event.button == PointerEvent::Button::left) press(event.x, event.y);
      return;
    case PointerEvent::Act::move: return drag(event.x, event.y);
    case PointerEvent::Act::up: sees_.state.dragging = 0; return;
    case PointerEvent::Act::twice: return;
  }
}

void GridCommands::press(double x, double y) {
  sees_.state.dragging = view_.wind.wndarm.isUnder(x, y) ? -1 : 0;
  if (sees_.state.dragging != 0) return;
  const int sector = sectorAt(view_, x, y);
  if (sector < 0) return;
  Field& box = view_.znePopdnsty[sector];
  silently([&] { sees_.desktop.setFocus(box); });
  if (focusedSector_ == sector) box.fire(Event::click);  // else a text that was refused keeps the focus
}

void GridCommands::drag(double x, double y) const {
  constexpr double beyondEdge = 25;  // twips
  const WindArm& arm = view_.wind;
  const bool on = arm.wndarm.isUnder(x, y);
  arm.wndarm.showGrip(on);
  view_.PopdnstySector.setToolTip(on ? dragTip : "");
  if (sees_.state.dragging == 0) return;
  // Left of the picture the angle would turn over.
  if (y <= arm.size.centreY && x < -beyondEdge) return;
  turnDial(view_.wndsld1, dialDegrees(x, y, arm.size.centreX, arm.size.centreY));
}

void GridCommands::prvrpt1_Click() {
  const StatusLine::Act act{sees_.mainStatus};
  RingDensities densities;
  for (int band = 0; band < gridBands; ++band)
    densities.at(static_cast<std::size_t>(band)) = view_.populatndnsty[band].text();
  const std::string where =
      "sector " + std::to_string(sees_.row.sector() + 1) + (view_.imports() ? " of " + sees_.row.reference() : "");
  const bool shown = sees_.reportView.visible();
  if (!shown) sees_.reportView.load();
  sees_.report.fillNumbers(densities);
  sees_.row.update();
  sees_.report.pageoptn.setValue(1);
  sees_.report.pageoptn.fire(Event::click);
  close();
  tellPeople(where);
  if (!shown) sees_.reportView.close();
}

void GridCommands::tellPeople(const std::string& where) const {
  const ReportTableFields& report = sees_.report;
  sees_.mainStatus.say(!sees_.outputList.enabled()
                           ? "There is no table of fatality and injury yet: compute first."
                           : "Fatality No. " + ReportTableFields::sum(report.Absftltxt) + " and Injury No. " +
                                 ReportTableFields::sum(report.AbsInjtxt) + " with the people of " + where + ".");
}

void GridCommands::closing() const {
  sees_.row.close();
  const StatusLine::Act act{sees_.mainStatus};
  if (sees_.status.hasFault()) sees_.mainStatus.say(sees_.status.fault());
  if (view_.converts()) sees_.mainStatus.say("The bands were not converted: they hold what was typed.");
}

}  // namespace noldarz
