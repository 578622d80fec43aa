#include "population/grid_row.h"

#include "platform/store/any_case.h"
#include "study/row_edit.h"

namespace noldarz {

namespace {

constexpr const char* emptyCell = "0";

}  // namespace

GridRow::GridRow(const Sees& sees) : sees_(sees) {
  for (int cell = 0; cell < sees_.view.gridcell.size(); ++cell)
    sees_.dt5.bind(sees_.view.gridcell[cell], columnOf(cell), faultOfDensity, wordsOf(cell, "{}"), emptyCell);
  bind(0);
}

std::string GridRow::wordsOf(int cell, const std::string& density) {
  return "density " + density + "/Ha in " + cellName(cell);
}

void GridRow::open() {
  if (isAlone()) return changed();
  sees_.dt5.setDatabaseName(sees_.study.dbPath);
  requery();
}

void GridRow::close() {
  if (sees_.view.imports()) drop();
  Trap{[this](const RuntimeFailure& failure) {
    sees_.status.tellFault("Not stored: " + sees_.dt5.pendingEdits() + ". " + failure.what());
    sees_.dt5.abandon();
  }}.step([this] { sees_.dt5.close(); });
}

void GridRow::requery() {
  if (isAlone()) return;
  if (sees_.view.imports()) drop();
  sees_.status.skipping().steps(
      [this] {
        sees_.queries.use(sees_.dt5, &Queries::buildQryPopulation, sees_.study.qryPopulation, sees_.view.getfrPre);
      },
      [this] { sees_.dt5.refresh(); },
      [this] { make(); });
  changed();
}

void GridRow::make() {
  if (sees_.dt5.recordCount() > 0 || sees_.view.imports()) return;
  if (own().empty()) return sees_.status.say("There is no active project, and so no grid.");
  sees_.dt5.insert({{"refNo", own()}});
  sees_.dt5.refresh();
  sees_.status.say("A new grid for " + own() + ".");
}

void GridRow::drop() {
  if (hasRow()) sees_.dt5.cancelUpdate();
}

void GridRow::bind(int sector) {
  update();
  if (!isAlone() && !hasRow() && !sees_.study.qryPopulation.empty()) requery();  // perhaps there is one now
  sector_ = sector;
  for (int band = 0; band < gridBands; ++band) {
    const int cell = cellOf(band);
    if (isAlone()) show(cell, sees_.view.gridcell[cell].text());
    sees_.dt5.bind(sees_.view.populatndnsty[band], columnOf(cell), faultOfDensity, wordsOf(cell, "{}"), emptyCell);
  }
}

void GridRow::nameSector() const {
  sees_.view.zonenumlbl.setCaption("Population density/Ha. for sector " + std::to_string(sector_ + 1));
}

void GridRow::show(int cell, const std::string& text) const {
  sees_.view.gridcell[cell].setText(text);
  if (sectorOf(cell) == sector_) sees_.view.populatndnsty[bandOf(cell)].setText(text);
}

bool GridRow::update() {
  if (sees_.view.imports()) drop();
  return sees_.dt5.pendingEdits().empty() || store({});
}

void GridRow::enter(int cell, const Field& field) {
  if (isAlone())
    store({{cell, field.text()}});
  else
    update();
}

bool GridRow::store(const std::vector<std::pair<int, std::string>>& cells) {
  if (sees_.view.imports()) {
    drop();
    return false;
  }
  for (const auto& [cell, text] : cells) show(cell, text);  // in place of what was typed there meanwhile
  const std::string fault = sees_.status.fault();
  bool stored = false;
  if (isOwn()) {
    std::vector<std::pair<std::string, Cell>> columns;
    columns.reserve(cells.size());
    for (const auto& [cell, text] : cells) columns.emplace_back(columnOf(cell), text);
    stored = RowEdit{sees_.dt5, sees_.status.skipping()}.setAll(columns).storeOrDrop();
  }
  if (stored && sees_.status.fault() == fault) sees_.status.clearFault();
  changed();
  return stored;
}

void GridRow::changed() const {
  const GridView& view = sees_.view;
  const bool shown = hasRow() || isAlone();
  const bool open = shown && !sees_.view.imports();
  const auto follow = [&](Field& field) {
    if (!shown) field.setText("");
    field.setEnabled(open);
  };
  for (int band = 0; band < gridBands; ++band) follow(view.populatndnsty[band]);
  for (int cell = 0; cell < view.gridcell.size(); ++cell) follow(view.gridcell[cell]);
  view.pastegrd.setEnabled(open);
  view.popdnstycbo.setEnabled(shown);
  shown_();
}

std::string GridRow::reference() const { return hasRow() ? sees_.dt5.text("refNo") : ""; }

double GridRow::density(int cell) const {
  const Cell& density = sees_.dt5.value(columnOf(cell));
  return holdsNothing(density) ? 0 : numberOf(density);
}

bool GridRow::isOwn() const { return hasRow() && folded(reference()) == folded(own()); }

std::optional<RingDensities> GridRow::stored(const std::shared_ptr<Database>& study, int sector) const {
  sees_.queries.build(&Queries::buildQryPopulation, sees_.view.getfrPre);
  const Recordset row{study, sees_.study.qryPopulation, Recordset::Access::read};
  if (row.eof()) return std::nullopt;
  RingDensities densities;
  for (int band = 0; band < gridBands; ++band) {
    const Cell& density = row.value(columnOf(cellIndex(sector, band)));
    densities.at(static_cast<std::size_t>(band)) = holdsNothing(density) ? emptyCell : textOf(density);
  }
  return densities;
}

}  // namespace noldarz
