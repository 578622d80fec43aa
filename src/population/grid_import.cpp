#include "population/grid_import.h"

#include <cmath>
#include <limits>

#include "platform/failure.h"
#include "platform/text.h"
#include "population/grid.h"

namespace noldarz {

namespace {

constexpr int mostInBuffer = std::numeric_limits<std::int16_t>::max();

std::string importTitle(const std::string& reference) {
  return "NOLDA-RZ : Getting from previous Ref.No. " + reference;
}

}  // namespace

GridImport::GridImport(const Sees& sees) : sees_(sees), view_(sees.view) {
  View& view = view_.view;
  view.onLoad([this] { Form_Load(); });
  view.on(view_.getfrPre, Event::click, [this] { view_.imports() ? begin() : end(); });
  view.on(view_.popdnstycbo, Event::click, [this] {
    if (view_.imports()) popdnstycbo_Click();
  });
  view.on(view_.impotBtn, Event::click, [this] { impotBtn_Click(); });
}

void GridImport::Form_Load() const {
  view_.view.setTitle(populationTitle);
  view_.getfrPre.setValue(0);
  view_.impotBtn.disable();
  showClasses();
}

void GridImport::begin() {
  view_.view.setTitle(importTitle(sees_.row.reference()));
  sees_.row.requery();
  listReferences();
  takeGrid();
  silently([this] { sees_.desktop.setFocus(view_.popdnstycbo); },
           [this] { sees_.desktop.openDropDown(view_.popdnstycbo); });
}

void GridImport::listReferences() const {
  std::vector<std::string> references;
  silently([&] {
    for (; !sees_.dt5.eof(); sees_.dt5.moveNext()) references.push_back(sees_.row.reference());
    sees_.dt5.moveFirst();
  });
  view_.popdnstycbo.setEntries(references);
  view_.popdnstycbo.setText(references.empty() ? "" : references.front());
}

void GridImport::end() const {
  view_.view.setTitle(populationTitle);
  sees_.row.drop();
  sees_.row.requery();
  showClasses();
  view_.impotBtn.disable();
}

void GridImport::showClasses() const {
  std::vector<std::string> names;
  names.reserve(settlementClasses.size());
  for (const auto& entry : settlementClasses) names.emplace_back(entry.name);
  view_.popdnstycbo.setEntries(names);
  view_.popdnstycbo.setText("");
}

void GridImport::popdnstycbo_Click() {
  takeGrid();
  view_.view.setTitle(importTitle(sees_.row.reference()));
}

void GridImport::takeGrid() {
  sees_.state.popImportBuf.fill(0);
  losesFractions_ = false;
  view_.impotBtn.setEnabled(sees_.row.hasRow());
  if (!sees_.row.hasRow()) return;
  silently([this] {
    sees_.dt5.moveFirst();
    while (sees_.row.reference() != view_.popdnstycbo.text()) sees_.dt5.moveNext();
  });
  std::string refused;
  for (int cell = 0; cell < view_.gridcell.size(); ++cell)
    Trap{[&](const RuntimeFailure&) {
      if (refused.empty()) refused = cellName(cell);
    }}.step([&] {
      const double density = sees_.row.density(cell);
      const int whole = toInteger(density);
      if (whole < 0 || whole > mostInBuffer) fail(FailureNumber::overflow);
      sees_.state.popImportBuf.at(static_cast<std::size_t>(cell)) = static_cast<std::int16_t>(whole);
      losesFractions_ = losesFractions_ || density != std::trunc(density);
    });
  sees_.row.changed();
  view_.impotBtn.setEnabled(refused.empty());
  sees_.status.say(refused.empty() ? ""
                                   : "The grid of " + sees_.row.reference() + " can't be imported: " + refused +
                                         " holds no number from 0 to 32767.");
}

void GridImport::impotBtn_Click() {
  if (!view_.imports()) return;
  const MessageBox box = question("Wish to import population density from selected Ref.No.?");
  if (sees_.desktop.messageBox(box) == Reply::yes) replaceGrid();
}

void GridImport::replaceGrid() {
  const std::string from = sees_.row.reference();
  const bool own = sees_.row.isOwn();
  view_.getfrPre.setValue(0);
  end();
  if (own) return sees_.status.say(from + " is the own reference number: its grid stays as it is.");
  std::vector<std::pair<int, std::string>> cells;
  cells.reserve(gridCells);
  for (int cell = 0; cell < view_.gridcell.size(); ++cell)
    cells.emplace_back(cell, plainText(sees_.state.popImportBuf.at(static_cast<std::size_t>(cell))));
  if (!sees_.row.store(cells)) return;
  sees_.status.say("Imported from " + from + (losesFractions_ ? "; fractions of densities are lost." : "."));
}

}  // namespace noldarz
