#include "platform/store/recordset.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>

#include "platform/store/any_case.h"
#include "platform/store/store_failure.h"

namespace noldarz {

namespace {

constexpr std::string_view reading{"SELECT"};

/// The text after its first word, which must be SELECT: nothing else reads only.
std::string_view afterSelect(std::string_view query) {
  query.remove_prefix(std::min(query.find_first_not_of(" \t\r\n"), query.size()));
  const bool reads =
      query.size() > reading.size() && std::equal(reading.begin(), reading.end(), query.begin(), [](char a, char b) {
        return a == std::toupper(static_cast<unsigned char>(b));
      });
  if (!reads) throw StoreFailure(FailureNumber::querySyntax, "the query is no reading statement");
  return query.substr(reading.size());
}

bool sameName(std::string_view a, std::string_view b) { return compareWithoutCase(a, b) == 0; }

/// Whether the column has kept the value: as it is, or as the number or text that it turns it into.
bool sameValue(const Cell& stored, const Cell& written) {
  if (holdsNothing(stored) || holdsNothing(written)) return holdsNothing(stored) == holdsNothing(written);
  const std::string text = textOf(written);
  if (textOf(stored) == text) return true;
  return isNumeric(textOf(stored)) && isNumeric(text) && strictNumber(textOf(stored)) == strictNumber(text);
}

/// Grouped rows stand for several rows of the table. What stands in quotes is a name.
bool isGrouped(std::string_view query) {
  std::string upper;
  bool quoted = false;
  for (const char c : query) {
    if (c == '\'') quoted = !quoted;
    const bool blank = std::isspace(static_cast<unsigned char>(c)) != 0;
    if (!quoted && !(blank && upper.ends_with(' ')))
      upper += blank ? ' ' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return upper.find("GROUP BY") != std::string::npos;
}

ColumnType typeOf(const Layout& layout, std::string_view table, std::string_view column) {
  const Table* known = layout.find(table);
  const Column* found = known ? known->find(column) : nullptr;
  return found ? found->type : ColumnType::any;
}

}  // namespace

Recordset::Recordset(std::shared_ptr<Database> database, const std::string& text, Access access)
    : database_(std::move(database)) {
  const std::string query = access == Access::read ? text : comparingAnyCase(text);
  const std::string_view rest = afterSelect(query);
  Statement statement{*database_, query};
  if (sqlite3_stmt_readonly(statement.handle()) == 0)
    throw StoreFailure(FailureNumber::querySyntax, "the query is no reading statement");
  takeColumns(statement);
  if (access == Access::read || isGrouped(query)) table_.clear();
  if (table_.empty() || !readWithIds(rest)) readRows(statement, false);
}

bool Recordset::readWithIds(std::string_view rest) {
  // The same query with one more column in front: which row of the table it is.
  const std::string located = fmt::format("SELECT {}.rowid,{}", quotedName(table_), rest);
  try {
    Statement statement{*database_, located};
    readRows(statement, true);
    return true;
  } catch (const StoreFailure& failure) {
    if (failure.reason() != FailureNumber::querySyntax) throw;
    table_.clear();  // rows without a number of their own, such as DISTINCT ones
    return false;
  }
}

void Recordset::takeColumns(const Statement& statement) {
  for (int i = 0; i < statement.columnCount(); ++i) {
    const char* table = sqlite3_column_table_name(statement.handle(), i);
    const char* origin = sqlite3_column_origin_name(statement.handle(), i);
    columns_.emplace_back(origin ? origin : sqlite3_column_name(statement.handle(), i));
    const std::string name = table ? table : "";
    types_.push_back(typeOf(database_->layout(), name, columns_.back()));
    if (i == 0) table_ = name;
    if (name != table_) table_.clear();
  }
}

void Recordset::readRows(Statement& statement, bool withIds) {
  const int first = withIds ? 1 : 0;
  rows_.clear();
  while (statement.step()) {
    Row& row = rows_.emplace_back();
    if (withIds && holdsNothing(statement.cell(0))) table_.clear();  // an outer join: no row of the table
    if (withIds && !table_.empty()) row.id = static_cast<std::int64_t>(numberOf(statement.cell(0)));
    for (int i = first; i < statement.columnCount(); ++i) row.cells.push_back(statement.cell(i));
  }
}

void Recordset::moveFirst() {
  cancelUpdate();
  if (rows_.empty()) fail(FailureNumber::noCurrentRow);
  at_ = 0;
}

void Recordset::moveNext() {
  cancelUpdate();
  if (eof()) fail(FailureNumber::noCurrentRow);
  ++at_;
}

std::optional<int> Recordset::find(std::string_view column) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(), [&](const auto& name) { return sameName(name, column); });
  if (found == columns_.end()) return {};
  return static_cast<int>(found - columns_.begin());
}

int Recordset::position(std::string_view column) const {
  const auto found = find(column);
  if (!found) fail(FailureNumber::noSuchColumn);
  return *found;
}

const Cell& Recordset::value(int column) const {
  static const Cell nothing;
  if (column < 0 || column >= static_cast<int>(columns_.size())) fail(FailureNumber::noSuchColumn);
  if (const auto change = changes_.find(column); change != changes_.end()) return change->second;
  if (mode_ == Mode::add) return nothing;
  if (eof()) fail(FailureNumber::noCurrentRow);
  return rows_[at_].cells[static_cast<std::size_t>(column)];
}

void Recordset::requireWritable() const {
  if (table_.empty()) throw StoreFailure(FailureNumber::readOnly, "the rows of the query can't be written");
}

void Recordset::edit() {
  if (isOpenForWriting()) return;
  if (eof()) fail(FailureNumber::noCurrentRow);
  requireWritable();
  mode_ = Mode::edit;
}

void Recordset::addNew() {
  requireWritable();
  cancelUpdate();
  mode_ = Mode::add;
}

void Recordset::cancelUpdate() {
  mode_ = Mode::closed;
  changes_.clear();
}

void Recordset::set(int column, Cell value) {
  if (!isOpenForWriting()) fail(FailureNumber::updateUnopened);
  if (column < 0 || column >= static_cast<int>(columns_.size())) fail(FailureNumber::noSuchColumn);
  if (const auto* text = std::get_if<std::string>(&value); text && isNumber(column)) {
    const ParsedNumber parsed = parseNumber(*text);
    if (parsed.outcome == ParsedNumber::Outcome::number)
      value = parsed.value;
    else if (text->empty())
      value = std::monostate{};
  }
  changes_[column] = std::move(value);
}

void Recordset::update() {
  if (!isOpenForWriting()) fail(FailureNumber::updateUnopened);
  std::int64_t row = isAdding() ? 0 : rows_[at_].id;
  if (isAdding() || !changes_.empty())
    database_->transact([&] {
      isAdding() ? storeNewRow() : storeChanges();
      if (isAdding()) row = sqlite3_last_insert_rowid(database_->handle());
      requireStored(row);
    });
  if (isAdding()) {
    rows_.push_back({row, std::vector<Cell>(columns_.size())});
    at_ = rows_.size() - 1;
  }
  for (auto& [column, cell] : changes_) rows_[at_].cells[static_cast<std::size_t>(column)] = std::move(cell);
  cancelUpdate();
}

void Recordset::requireStored(std::int64_t row) const {
  std::string columns = "rowid";
  for (const auto& [column, cell] : changes_) columns += ", " + quotedName(columns_[static_cast<std::size_t>(column)]);
  Statement stored{*database_, fmt::format("SELECT {} FROM {} WHERE rowid = ?", columns, quotedName(table_))};
  stored.bind(1, row);
  bool same = stored.step();
  int at = 0;
  for (const auto& [column, cell] : changes_) same = same && sameValue(stored.cell(++at), cell);
  if (!same)
    throw StoreFailure(FailureNumber::storeFailed, fmt::format("{} does not keep what is written to it", table_));
}

void Recordset::storeChanges() {
  std::string sets;
  std::string same;  // a row that was deleted meanwhile may have left its number to another one
  std::vector<Cell> values;
  for (const auto& [column, cell] : changes_) {
    sets += fmt::format("{}{} = ?", sets.empty() ? "" : ", ", quotedName(columns_[static_cast<std::size_t>(column)]));
    values.push_back(cell);
  }
  values.emplace_back(rows_[at_].id);
  const Table* table = database_->layout().find(table_);
  for (std::size_t i = 0; table && i < columns_.size(); ++i) {
    if (!table->isKey(columns_[i])) continue;
    same += fmt::format(" AND {} IS ?", quotedName(columns_[i]));
    values.push_back(rows_[at_].cells[i]);
  }
  Statement statement{*database_, fmt::format("UPDATE {} SET {} WHERE rowid = ?{}", quotedName(table_), sets, same)};
  for (std::size_t i = 0; i < values.size(); ++i) statement.bind(static_cast<int>(i) + 1, values[i]);
  statement.step();
  if (sqlite3_changes(database_->handle()) != 1)
    throw StoreFailure(FailureNumber::noCurrentRow, "the row is no longer there");
}

void Recordset::requireNewKey() const {
  const Table* table = database_->layout().find(table_);
  std::string same;
  std::vector<const Cell*> key;
  for (const auto& [column, cell] : changes_) {
    const std::string& name = columns_[static_cast<std::size_t>(column)];
    if (!table || !table->isKey(name) || holdsNothing(cell)) continue;
    same += fmt::format("{}{} = ? COLLATE {}", same.empty() ? "" : " AND ", quotedName(name), anyCase);
    key.push_back(&cell);
  }
  if (!table || table->key.empty() || key.size() != table->key.size()) return;  // a key in part is none
  Statement others{*database_, fmt::format("SELECT 1 FROM {} WHERE {}", quotedName(table_), same)};
  for (std::size_t i = 0; i < key.size(); ++i) others.bind(static_cast<int>(i) + 1, *key[i]);
  if (others.step())
    throw StoreFailure(FailureNumber::duplicateKey, fmt::format("{} has a row with this key already", table_));
}

void Recordset::storeNewRow() {
  requireNewKey();
  std::string names;
  std::string places;
  for (const auto& [column, cell] : changes_) {
    names += (names.empty() ? "" : ", ") + quotedName(columns_[static_cast<std::size_t>(column)]);
    places += places.empty() ? "?" : ", ?";
  }
  Statement statement{*database_,
                      changes_.empty()
                          ? fmt::format("INSERT INTO {} DEFAULT VALUES", quotedName(table_))
                          : fmt::format("INSERT INTO {} ({}) VALUES ({})", quotedName(table_), names, places)};
  int parameter = 0;
  for (const auto& [column, cell] : changes_) statement.bind(++parameter, cell);
  statement.step();
}

}  // namespace noldarz
