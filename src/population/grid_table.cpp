#include "population/grid_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/text.h"
#include "population/density_entry.h"
#include "population/grid.h"

namespace noldarz {

namespace {

/// Shades of a cell whose density exceeds a figure (persons/Ha).
constexpr std::array<std::pair<double, Colour>, 5> shades{{{50, {0x5f, 0x9f, 0xdb}},
                                                           {30, {0x86, 0xb6, 0xe4}},
                                                           {15, {0xa9, 0xcb, 0xed}},
                                                           {5, {0xc8, 0xde, 0xf4}},
                                                           {0, {0xe6, 0xf0, 0xfa}}}};

Colour shadeOf(const Field& cell) {
  const double density = cell.isNumeric() ? cell.number() : 0;
  const auto* found = std::find_if(shades.begin(), shades.end(), [&](const auto& s) { return density > s.first; });
  return found == shades.end() ? Colour{SystemColour::windowBackground} : found->second;
}

std::string withoutBlanks(const std::string& text) {
  const auto from = text.find_first_not_of(' ');
  return from == std::string::npos ? "" : text.substr(from, text.find_last_not_of(' ') + 1 - from);
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  return parts;
}

}  // namespace

std::vector<std::vector<std::string>> cellsOfText(const std::string& text) {
  const char separator = text.find('\t') == std::string::npos ? ',' : '\t';
  std::string lines = text;
  std::erase(lines, '\r');
  while (lines.ends_with('\n')) lines.pop_back();
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : split(lines, '\n')) {
    auto& row = rows.emplace_back();
    for (const std::string& cell : split(line, separator)) row.push_back(withoutBlanks(cell));
  }
  return rows;
}

GridTable::GridTable(const Sees& sees) : sees_(sees), view_(sees.view) {
  View& view = view_.view;
  for (int cell = 0; cell < view_.gridcell.size(); ++cell) {
    view.on(view_.gridcell[cell], Event::gotFocus, [this, cell] { lastCell_ = cell; });
    view.on(view_.gridcell[cell], Event::lostFocus, [this, cell] { gridcell_LostFocus(cell); });
  }
  view.onLoad([this] { lastCell_ = 0; });
  view.on(view_.copygrd, Event::click, [this] { copygrd_Click(); });
  view.on(view_.pastegrd, Event::click, [this] { pastegrd_Click(); });
  sees_.row.onShown([this] { show(); });
}

void GridTable::show() const {
  DensityGrid grid{};
  bool known = true;
  for (int cell = 0; cell < view_.gridcell.size(); ++cell) {
    const Field& field = view_.gridcell[cell];
    view_.gridcell[cell].setBackColour(shadeOf(field));
    known = known && field.isNumeric();
    if (field.isNumeric()) grid.at(static_cast<std::size_t>(cell)) = field.number();
  }
  const auto people = peopleWithin(grid);
  for (int band = 0; band < gridBands; ++band)
    view_.totlbl[band].setCaption(known ? Format(people.at(static_cast<std::size_t>(band)), "0") : "N.A.");
}

void GridTable::gridcell_LostFocus(int cell) {
  Field& field = view_.gridcell[cell];
  if (acceptsDensity(field, shadeOf(field), sees_.desktop)) sees_.row.enter(cell, field);
}

void GridTable::copygrd_Click() const {
  std::string text;
  for (int cell = 0; cell < view_.gridcell.size(); ++cell)
    text += view_.gridcell[cell].text() + (bandOf(cell) == gridBands - 1 ? '\n' : '\t');
  sees_.desktop.setClipboard(text);
  sees_.status.say("The table is on the clipboard.");
}

void GridTable::pastegrd_Click() const {
  if (const std::string fault = paste(sees_.desktop.clipboard()); !fault.empty())
    sees_.status.say("Nothing is pasted: " + fault);
}

std::string GridTable::paste(const std::string& text) const {
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) return "the clipboard holds no text.";
  std::vector<std::pair<int, std::string>> cells;
  if (std::string fault = placeCells(cellsOfText(text), text.find('\t') != std::string::npos, cells); !fault.empty())
    return fault;
  if (sees_.row.store(cells)) sees_.status.say(fmt::format("{} densities pasted and stored.", cells.size()));
  return "";
}

std::string GridTable::placeCells(const std::vector<std::vector<std::string>>& rows, bool tabs,
                                  std::vector<std::pair<int, std::string>>& cells) const {
  const std::size_t width = rows.front().size();
  if (width == 2 && !tabs)
    return "two cells beside each other can be one with a decimal comma; separate them by a tab.";
  const bool whole = rows.size() == gridSectors && width == gridBands;
  const int first = whole ? 0 : lastCell_;
  if (static_cast<std::size_t>(sectorOf(first)) + rows.size() > gridSectors ||
      static_cast<std::size_t>(bandOf(first)) + width > gridBands)
    return fmt::format("{} x {} cells do not fit into the table from {} on.", rows.size(), width, cellName(first));
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row].size() != width) return fmt::format("row {} has {} cells, not {}.", row + 1, rows[row].size(), width);
    for (std::size_t column = 0; column < width; ++column) {
      const int cell = first + cellIndex(static_cast<int>(row), static_cast<int>(column));
      const std::string density = rows[row][column].empty() ? "0" : rows[row][column];
      if (const std::string fault = faultOfDensity(density); !fault.empty())
        return fmt::format("\"{}\" for {} {}.", density, cellName(cell), fault);
      cells.emplace_back(cell, density);
    }
  }
  return "";
}

}  // namespace noldarz
