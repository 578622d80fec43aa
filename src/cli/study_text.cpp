#include "cli/study_text.h"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/store/data_link.h"
#include "platform/store/store_failure.h"
#include "scenario/queries.h"

namespace noldarz {

namespace {

using Source = toml::source_region;

[[noreturn]] void refuse(const std::string& name, const Source& at, const std::string& text) {
  throw StudyTextError(fmt::format("{}:{}: {}", name, at.begin.line, text));
}

std::string_view typeName(ColumnType type) {
  switch (type) {
    case ColumnType::text: return "a text";
    case ColumnType::number: return "a number, or a text that stands in its place";
    case ColumnType::boolean: return "true or false";
    case ColumnType::any: break;
  }
  return "a text or a number";
}

/// The value as the column stores it; nothing for a type that it does not take.
std::optional<Cell> cellOf(const toml::node& node, ColumnType type) {
  const bool takesText = type != ColumnType::boolean;
  const bool takesNumber = type == ColumnType::number || type == ColumnType::any;
  if (const auto* text = node.as_string(); text && takesText) return Cell{text->get()};
  if (const auto* truthValue = node.as_boolean(); truthValue && type == ColumnType::boolean)
    return Cell{std::int64_t{truthValue->get() ? -1 : 0}};
  if (const auto* whole = node.as_integer(); whole && takesNumber)
    return type == ColumnType::any ? Cell{whole->get()} : Cell{static_cast<double>(whole->get())};
  if (const auto* number = node.as_floating_point(); number && takesNumber && std::isfinite(number->get()))
    return Cell{number->get()};
  return {};
}

class Filler {
 public:
  Filler(const Database& study, const std::string& name) : study_(study), name_(name) {}

  void fill(const toml::table& text) {
    for (const auto& [key, node] : text)
      if (!study_.layout().find(key.str())) refuse(name_, key.source(), fmt::format("unknown table \"{}\"", key.str()));
    for (const Table& table : study_.layout().tables) {
      const auto* node = text.get(table.name);
      if (!node) continue;
      const auto* rows = node->as_array();
      if (!rows || !rows->is_homogeneous<toml::table>())
        refuse(
            name_, node->source(), fmt::format("\"{0}\" is no list of rows: each begins with [[\"{0}\"]]", table.name));
      for (const auto& row : *rows) addRow(table, *row.as_table());
    }
    requireOneActiveProject(text);
    requireScenario(text);
  }

 private:
  void addRow(const Table& table, const toml::table& row) {
    std::string names;
    std::string places;
    std::vector<Cell> cells;
    for (const auto& [key, node] : row) {
      const Column* column = table.find(key.str());
      if (!column)
        refuse(name_, key.source(), fmt::format("unknown column \"{}\" of table \"{}\"", key.str(), table.name));
      const auto cell = cellOf(node, column->type);
      if (!cell)
        refuse(name_,
               node.source(),
               fmt::format("column \"{}\" of table \"{}\" takes {}", key.str(), table.name, typeName(column->type)));
      names += (names.empty() ? "" : ", ") + quotedName(key.str());
      places += places.empty() ? "?" : ", ?";
      cells.push_back(*cell);
    }
    requireKey(table, row);
    if (cells.empty()) refuse(name_, row.source(), fmt::format("a row of table \"{}\" is empty", table.name));
    Statement statement{study_, fmt::format("INSERT INTO {} ({}) VALUES ({})", quotedName(table.name), names, places)};
    for (std::size_t i = 0; i < cells.size(); ++i) statement.bind(static_cast<int>(i) + 1, cells[i]);
    try {
      statement.step();
    } catch (const StoreFailure& failure) {
      if (failure.reason() != FailureNumber::duplicateKey) throw;
      refuse(name_, row.source(), fmt::format("table \"{}\" holds a row with this key already", table.name));
    }
  }

  void requireKey(const Table& table, const toml::table& row) {
    for (const auto column : table.key) {
      const auto* node = row.get(column);
      const std::string value = node ? node->value_or(std::string{}) : "";
      if (value.empty())
        refuse(name_, row.source(), fmt::format("a row of table \"{}\" lacks its key \"{}\"", table.name, column));
      requirePlain(table.name, column, value, row.source());
    }
  }

  void requirePlain(std::string_view table, std::string_view column, const std::string& value, const Source& at) {
    if (const std::string fault = faultOfName(value); !fault.empty())
      refuse(name_, at, fmt::format("\"{}\" in column \"{}\" of table \"{}\" {}", value, column, table, fault));
  }

  void requireScenario(const toml::table& text) {
    const auto* scenarios = text["scenr1"].as_array();
    if (!scenarios || scenarios->empty())
      refuse(name_, text.source(), "no working scenario: table \"scenr1\" has no row");
    const toml::table& scenario = *scenarios->get(0)->as_table();
    requirePlain("scenr1", "scenariotxt", scenario["scenariotxt"].value_or(std::string{}), scenario.source());
  }

  void requireOneActiveProject(const toml::table& text) {
    const auto* projects = text["dsptbl-1"].as_array();
    int active = 0;
    for (std::size_t i = 0; projects && i < projects->size(); ++i) {
      const toml::table& project = *projects->get(i)->as_table();
      if (!project["actvproj"].value_or(false)) continue;
      if (++active > 1)
        refuse(
            name_, project.source(), "two projects are active: only one row of table \"dsptbl-1\" has actvproj = true");
    }
    if (active == 0)
      refuse(name_, text.source(), "no project is active: one row of table \"dsptbl-1\" needs actvproj = true");
  }

  const Database& study_;
  const std::string& name_;
};

/// A text in quotes, with what TOML does not take in one escaped.
std::string quotedText(std::string_view text) {
  std::string quoted{'"'};
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\')
      quoted += {'\\', c};
    else if (c == '\n')
      quoted += "\\n";
    else if (c == '\t')
      quoted += "\\t";
    else if (byte < 0x20 || byte == 0x7f)
      quoted += fmt::format("\\u{:04X}", byte);
    else
      quoted += c;
  }
  return quoted + '"';
}

/// The shortest text that reads back as the number; a whole number of a number column without a point.
std::string numberText(double value, ColumnType type) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value).ptr;
  std::string text(buffer.begin(), end);
  const bool whole = text.find_first_not_of("-0123456789") == std::string::npos;
  return whole && type == ColumnType::any ? text + ".0" : text;
}

/// The value as the text has it; nothing for one that a text can't have: no truth value, no finite number.
std::optional<std::string> cellText(const Cell& cell, ColumnType type) {
  const auto* real = std::get_if<double>(&cell);
  const bool isText = std::holds_alternative<std::string>(cell);
  if ((real && !std::isfinite(*real)) || (type == ColumnType::boolean && isText)) return {};
  if (type == ColumnType::boolean) return isTrue(cell) ? "true" : "false";
  if (const auto* text = std::get_if<std::string>(&cell)) return quotedText(*text);
  if (const auto* number = std::get_if<double>(&cell)) return numberText(*number, type);
  return textOf(cell);
}

void appendCell(std::string& text, const Database& study, const Table& table, const Column& column, const Cell& cell) {
  if (holdsNothing(cell)) return;
  const auto value = cellText(cell, column.type);
  const bool isText = std::holds_alternative<std::string>(cell);
  if (!value)
    throw StoreFailure(FailureNumber::typeMismatch,
                       fmt::format("{} holds \"{}\" in column \"{}\" of table \"{}\", which takes {}",
                                   study.file().string(),
                                   isText ? textOf(cell) : "no finite number",
                                   column.name,
                                   table.name,
                                   typeName(column.type)));
  text += fmt::format("{} = {}\n", column.name, *value);
}

}  // namespace

void fillStudy(const Database& study, const std::string& text, const std::string& name) try {
  const toml::table table = toml::parse(text);
  study.transact([&] { Filler{study, name}.fill(table); });
} catch (const toml::parse_error& error) {
  refuse(name, error.source(), std::string{error.description()});
}

std::string studyText(const std::shared_ptr<Database>& study) {
  std::string text;
  for (const Table& table : study->layout().tables) {
    std::string columns;
    for (const Column& column : table.columns) columns += (columns.empty() ? "" : ", ") + quotedName(column.name);
    Recordset rows{study,
                   fmt::format("SELECT {} FROM {} ORDER BY rowid", columns, quotedName(table.name)),
                   Recordset::Access::read};
    const bool bare = table.name.find('-') == std::string_view::npos;
    for (; !rows.eof(); rows.moveNext()) {
      text +=
          (text.empty() ? "" : "\n") + fmt::format("[[{}]]\n", bare ? std::string{table.name} : quotedName(table.name));
      for (std::size_t i = 0; i < table.columns.size(); ++i)
        appendCell(text, *study, table, table.columns[i], rows.value(static_cast<int>(i)));
    }
  }
  return text;
}

}  // namespace noldarz
