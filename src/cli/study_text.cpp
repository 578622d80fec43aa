#include "cli/study_text.h"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/study_rules.h"
#include "platform/store/data_link.h"
#include "platform/toml_scanner.h"
#include "platform/visible_text.h"

namespace noldarz {

namespace {

constexpr std::size_t longestBlock = 4'000'000;  // bytes of a row's text

/// A row, or what stands in front of the first one: a text of its own.
struct Block {
  std::string text;
  std::uint32_t firstLine = 1;
};

/// Cuts a text where its rows begin, so that a study of any length is read row by row.
class Blocks {
 public:
  Blocks(std::istream& text, const std::string& name) : text_(*text.rdbuf()), name_(name) {}

  /// The next block; nothing after the last.
  std::optional<Block> next() {
    if (text_.sgetc() == end) return {};
    Block block{"", line_};
    do {
      takeLine(block);
    } while (text_.sgetc() != end && !(scanner_.isBetweenLines() && text_.sgetc() == '['));
    return block;
  }

 private:
  static constexpr int end = std::char_traits<char>::eof();

  void takeLine(Block& block) {
    for (int c = text_.sbumpc(); c != end; c = text_.sbumpc()) {
      block.text += static_cast<char>(c);
      scanner_.take(static_cast<char>(c));
      if (block.text.size() > longestBlock || scanner_.isTooDeep())
        throw StudyTextError(fmt::format(
            "{}:{}: {}", name_, line_, scanner_.isTooDeep() ? "the text nests too deeply" : "a row is too long"));
      if (c == '\n') return void(++line_);
    }
  }

  std::streambuf& text_;
  const std::string& name_;
  TomlScanner scanner_;
  std::uint32_t line_ = 1;
};

std::string columnList(const Table& table) {
  std::string columns;
  for (const Column& column : table.columns) columns += (columns.empty() ? "" : ", ") + quotedName(column.name);
  return columns;
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
  Filler(const Database& study, const std::string& name) : study_(study), name_(name), rules_(study.layout()) {}

  void fill(std::istream& text) {
    Blocks blocks{text, name_};
    while (const auto block = blocks.next()) take(*block);
    if (const std::string fault = rules_.faultOfStudy(); !fault.empty())
      throw StudyTextError(fmt::format("{}:1: {}", name_, fault));
  }

 private:
  void take(const Block& block) try {
    line_ = block.firstLine;
    for (const auto& [key, node] : toml::parse(block.text)) {
      const Table* table = study_.layout().find(key.str());
      if (!table) refuse(key.source().begin.line, fmt::format("unknown table \"{}\"", key.str()));
      const auto* rows = node.as_array();
      if (!rows || !rows->is_array_of_tables())
        refuse(node.source().begin.line,
               fmt::format("\"{0}\" is no list of rows: each begins with [[\"{0}\"]]", table->name));
      for (const auto& row : *rows) addRow(*table, *row.as_table());
    }
  } catch (const toml::parse_error& error) {
    refuse(error.source().begin.line, std::string{error.description()});
  }

  void addRow(const Table& table, const toml::table& row) {
    std::vector<Cell> cells(table.columns.size());
    for (const auto& [key, node] : row) {
      const Column* column = table.find(key.str());
      if (!column)
        refuse(key.source().begin.line, fmt::format("unknown column \"{}\" of table \"{}\"", key.str(), table.name));
      const auto cell = cellOf(node, column->type);
      if (!cell)
        refuse(node.source().begin.line,
               fmt::format("column \"{}\" of table \"{}\" takes {}", key.str(), table.name, typeName(column->type)));
      cells[static_cast<std::size_t>(column - table.columns.data())] = *cell;
    }
    if (const std::string fault = rules_.faultOfRow(table, cells); !fault.empty())
      refuse(row.source().begin.line, fmt::format("a row of table \"{}\" {}", table.name, fault));
    Statement& insertion = insertionInto(table);
    for (std::size_t i = 0; i < cells.size(); ++i) insertion.bind(static_cast<int>(i) + 1, cells[i]);
    insertion.step();
    insertion.reset();
  }

  Statement& insertionInto(const Table& table) {
    const auto known = insertions_.find(table.name);
    if (known != insertions_.end()) return known->second;
    std::string places;
    for (std::size_t i = 0; i < table.columns.size(); ++i) places += i == 0 ? "?" : ", ?";
    const std::string text =
        fmt::format("INSERT INTO {} ({}) VALUES ({})", quotedName(table.name), columnList(table), places);
    return insertions_.try_emplace(table.name, study_, text).first->second;
  }

  [[noreturn]] void refuse(std::uint32_t lineOfBlock, const std::string& text) {
    throw StudyTextError(fmt::format("{}:{}: {}", name_, line_ + lineOfBlock - 1, text));
  }

  const Database& study_;
  const std::string& name_;
  StudyRules rules_;
  std::map<std::string_view, Statement> insertions_;
  std::uint32_t line_ = 1;  // where the block begins
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
  return escapedText(quoted + '"', Escapes::toml);
}

/// The shortest text that reads back as the number. A whole number has a point where without it the text would be
/// another kind of number, or none.
std::string numberText(double value, ColumnType type) {
  constexpr double endOfWholeNumbers = 9.2e18;
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value).ptr;
  std::string text(buffer.begin(), end);
  const bool whole = text.find_first_not_of("-0123456789") == std::string::npos;
  const bool needsPoint = type == ColumnType::any || std::abs(value) > endOfWholeNumbers;
  return whole && needsPoint ? text + ".0" : text;
}

/// The value as the text has it.
std::string cellText(const Cell& cell, ColumnType type) {
  const bool isText = std::holds_alternative<std::string>(cell);
  if (type == ColumnType::boolean) return isTrue(cell) ? "true" : "false";
  if (isText || type == ColumnType::text) return quotedText(textOf(cell));
  if (type == ColumnType::number || std::holds_alternative<double>(cell)) return numberText(numberOf(cell), type);
  return textOf(cell);
}

/// The rows of a table, their cells in the order of the layout.
class TableRows {
 public:
  TableRows(const Database& study, const Table& table)
      : statement_(study, fmt::format("SELECT {} FROM {} ORDER BY rowid", columnList(table), quotedName(table.name))),
        cells_(table.columns.size()) {}

  /// Goes to the next row, from 1; 0 after the last.
  int next() {
    if (!statement_.step()) return 0;
    for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i] = statement_.cell(static_cast<int>(i));
    return ++number_;
  }
  const std::vector<Cell>& cells() const { return cells_; }
  /// The first column that holds bytes and no value; -1 when none does.
  int bytesAt() const {
    for (int i = 0; i < static_cast<int>(cells_.size()); ++i)
      if (statement_.isBlob(i)) return i;
    return -1;
  }

 private:
  Statement statement_;
  std::vector<Cell> cells_;
  int number_ = 0;
};

void writeRow(std::ostream& out, const Table& table, const std::vector<Cell>& cells) {
  const bool bare = table.name.find('-') == std::string_view::npos;
  std::string text = fmt::format("[[{}]]\n", bare ? std::string{table.name} : quotedName(table.name));
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (!holdsNothing(cells[i]))
      text += fmt::format("{} = {}\n", table.columns[i].name, cellText(cells[i], table.columns[i].type));
  out << text;
}

}  // namespace

void fillStudy(const Database& study, std::istream& text, const std::string& name) { Filler{study, name}.fill(text); }

std::string faultOfRows(const Database& study) {
  StudyRules rules{study.layout()};
  for (const Table& table : study.layout().tables) {
    TableRows rows{study, table};
    while (const int number = rows.next()) {
      std::string fault = rules.faultOfRow(table, rows.cells());
      if (const int column = rows.bytesAt(); column >= 0)
        fault = fmt::format("holds bytes in column \"{}\"", table.columns[static_cast<std::size_t>(column)].name);
      if (!fault.empty()) return fmt::format("row {} of table \"{}\" {}", number, table.name, fault);
    }
  }
  return rules.faultOfStudy();
}

void writeStudy(const Database& study, std::ostream& out) {
  bool first = true;
  for (const Table& table : study.layout().tables) {
    TableRows rows{study, table};
    while (rows.next() > 0) {
      if (!std::exchange(first, false)) out << '\n';
      writeRow(out, table, rows.cells());
    }
  }
}

}  // namespace noldarz
