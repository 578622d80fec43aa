#include "population/unit_conversion.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/text.h"
#include "population/grid.h"

namespace noldarz {

namespace {

constexpr const char* headCounts =
    "Enter population in 0 to 2km, 2 to 4km...so on, to convert release the toggle button [convert]";
constexpr const char* densityTip = "Enter population density/Ha";

}  // namespace

UnitConversion::UnitConversion(const Sees& sees) : sees_(sees), view_(sees.view) {
  std::vector<std::string> entries;
  entries.reserve(densityUnits.size());
  for (const DensityUnit& unit : densityUnits) entries.emplace_back(unit.entry);
  view_.denUnitListCbo.setEntries(entries);
  setTips(densityTip);
  View& view = view_.view;
  view.onLoad([this] { Form_Load(); });
  view.on(view_.convrtPBtn, Event::click, [this] { view_.converts() ? begin() : end(); });
  view.on(view_.denUnitListCbo, Event::click, [this] { denUnitListCbo_Click(); });
}

void UnitConversion::Form_Load() const {
  view_.convrtPBtn.setValue(0);
  view_.denUnitListCbo.setText(densityUnits.front().entry);
  view_.denUnitListCbo.disable();
  setTips(densityTip);
  sees_.state.convertArmed = 0;
}

void UnitConversion::begin() const {
  view_.view.setTitle(view_.imports() ? "NOLDA-RZ : Multiple option selected"
                                      : "NOLDA-RZ : Convertion option selected");
  view_.denUnitListCbo.enable();
  view_.denUnitListCbo.setText(densityUnits.front().entry);
  view_.zonenumlbl.setCaption(headCounts);
  sees_.state.convertArmed = -1;
}

void UnitConversion::denUnitListCbo_Click() const {
  const std::string& entry = view_.denUnitListCbo.text();
  const bool population = entry == densityUnits.front().entry;
  view_.zonenumlbl.setCaption(
      population ? headCounts : "Enter units in " + entry + ", to convert release the toggle button [convert]");
  setTips(population ? "Enter population in 0 to 2km" : "Enter units in " + entry);
}

void UnitConversion::end() const {
  view_.view.setTitle(populationTitle);
  view_.denUnitListCbo.disable();
  sees_.row.nameSector();
  if (sees_.state.convertArmed == 0) return;
  if (sees_.desktop.messageBox(question("Wish to convert values?")) != Reply::yes) return;
  if (!convert()) return;
  setTips(densityTip);
  sees_.state.convertArmed = 0;
}

bool UnitConversion::convert() const {
  const Converted converted = convertedBands();
  if (view_.imports()) {  // what is looked at is shown converted, and stays as it is
    for (const auto& [cell, density] : converted.cells) view_.populatndnsty[bandOf(cell)].setText(density);
    sees_.status.say("The grid of " + sees_.row.reference() + " is looked at only: it stays as it is.");
    return true;
  }
  const bool stored = !converted.cells.empty() && sees_.row.store(converted.cells);
  if (!stored && sees_.row.hasRow() && !converted.cells.empty()) return false;  // which was told
  const StatusLine::Act act{sees_.status};
  if (stored) sees_.status.say("Converted and stored.");
  if (!converted.lost.empty()) sees_.status.say("Less than half a person/Ha, so 0: " + converted.lost);
  if (!converted.left.empty()) sees_.status.say("Not converted: " + converted.left);
  return true;
}

UnitConversion::Converted UnitConversion::convertedBands() const {
  Converted converted;
  const auto name = [&](std::string& names, int band) {
    names += (names.empty() ? "" : ", ") + view_.distlbl[band].caption();
  };
  const auto& entries = view_.denUnitListCbo.entries();
  const auto unit = static_cast<std::size_t>(std::find(entries.begin(), entries.end(), view_.denUnitListCbo.text()) -
                                             entries.begin());
  for (int band = 0; band < gridBands; ++band)
    Trap{[&](const RuntimeFailure&) { name(converted.left, band); }}.step([&] {
      if (unit == densityUnits.size()) fail(FailureNumber::listRefuses);
      const double typed = view_.populatndnsty[band].number();
      const std::string density = Format(densityFrom(densityUnits.at(unit), typed, band), "0");
      converted.cells.emplace_back(sees_.row.cellOf(band), density);
      if (typed > 0 && strictNumber(density) == 0) name(converted.lost, band);
    });
  return converted;
}

void UnitConversion::setTips(const std::string& tip) const {
  for (int band = 0; band < gridBands; ++band) view_.populatndnsty[band].setToolTip(tip);
}

}  // namespace noldarz
