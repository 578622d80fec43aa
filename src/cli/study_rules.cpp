#include "cli/study_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "platform/store/any_case.h"
#include "platform/store/data_link.h"
#include "platform/text.h"
#include "platform/visible_text.h"
#include "population/grid.h"
#include "study/queries.h"

namespace noldarz {

namespace {

constexpr std::string_view projects{"dsptbl-1"};
constexpr std::string_view scenarios{"scenr1"};
constexpr std::string_view populationGrid{"poplatndnstytbl"};

/// Why a column of the table can't hold the value; empty when it can.
std::string faultOfCell(const Table& table, const Column& column, const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  const auto* number = std::get_if<double>(&cell);
  const auto holding = [&](const std::string& what) {
    return fmt::format("holds {} in column \"{}\", which takes {}", what, column.name, typeName(column.type));
  };
  if (text && !isPlainText(*text)) return holding("bytes that are no text");
  if (number && !std::isfinite(*number)) return holding("no finite number");
  if (text && column.type == ColumnType::boolean) return holding("\"" + *text + "\"");
  const bool density = table.name == populationGrid && column.type == ColumnType::number && !holdsNothing(cell);
  if (density && !faultOfDensity(textOf(cell)).empty())
    return fmt::format("holds \"{}\" in column \"{}\", which takes persons per hectare", textOf(cell), column.name);
  return "";
}

const Cell& cellOf(const Table& table, const std::vector<Cell>& cells, std::string_view column) {
  return cells.at(static_cast<std::size_t>(table.find(column) - table.columns.data()));
}

std::string faultOfPlainName(std::string_view column, const std::string& name) {
  const std::string fault = faultOfName(name);
  return fault.empty() ? fault : fmt::format("holds \"{}\" in column \"{}\", and it {}", name, column, fault);
}

}  // namespace

std::string_view typeName(ColumnType type) {
  switch (type) {
    case ColumnType::text: return "a text";
    case ColumnType::number: return "a number, or a text that stands in its place";
    case ColumnType::boolean: return "true or false";
    case ColumnType::any: break;
  }
  return "a text or a number";
}

std::string StudyRules::faultOfRow(const Table& table, const std::vector<Cell>& cells) {
  if (std::all_of(cells.begin(), cells.end(), holdsNothing)) return "is empty";
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (std::string fault = faultOfCell(table, table.columns[i], cells[i]); !fault.empty()) return fault;
  if (std::string fault = faultOfKey(table, cells); !fault.empty()) return fault;
  if (table.name == projects && isTrue(cellOf(table, cells, "actvproj")) && ++activeProjects_ > 1)
    return "is a second active project: only one has actvproj = true";
  if (++rows_[table.name] == 1 && table.name == scenarios)
    return faultOfPlainName("scenariotxt", textOf(cellOf(table, cells, "scenariotxt")));
  return "";
}

std::string StudyRules::faultOfKey(const Table& table, const std::vector<Cell>& cells) {
  std::string key;
  std::string told;
  for (const auto column : table.key) {
    const std::string name = textOf(cellOf(table, cells, column));
    if (name.empty()) return fmt::format("lacks its key \"{}\"", column);
    if (std::string fault = faultOfPlainName(column, name); !fault.empty()) return fault;
    key += folded(name) + '\0';
    told += fmt::format("{}\"{}\"", told.empty() ? "" : ", ", name);
  }
  if (!key.empty() && !keys_[table.name].insert(key).second) return "has the key of another one, " + told;
  return "";
}

std::string StudyRules::faultOfStudy() const {
  if (activeProjects_ == 0) return "no project is active: one row of table \"dsptbl-1\" needs actvproj = true";
  if (!rows_.contains(scenarios)) return "no working scenario: table \"scenr1\" has no row";
  return "";
}

}  // namespace noldarz
