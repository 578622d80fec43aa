#include "platform/store/layout.h"

#include <fmt/format.h>

#include <algorithm>

namespace noldarz {

namespace {

std::string_view declaration(ColumnType type) {
  switch (type) {
    case ColumnType::text: return " TEXT COLLATE NOCASE";
    case ColumnType::number: return " DOUBLE";
    case ColumnType::boolean: return " BOOLEAN";
    case ColumnType::any: break;
  }
  return "";
}

/// Refuses a second row with the key, when one is added or one is changed. `others`: which rows are looked at.
std::string keyTrigger(const Table& table, std::string_view moment, std::string_view others) {
  std::string same{others};
  for (const auto column : table.key)
    same += fmt::format("{0}{1} = NEW.{1}", same.empty() ? "" : " AND ", quotedName(column));
  return fmt::format(
      "CREATE TRIGGER {} BEFORE {} ON {} WHEN EXISTS (SELECT 1 FROM {} WHERE {}) "
      "BEGIN SELECT RAISE(ABORT, 'duplicate key'); END",
      quotedName(fmt::format("{} key {}", table.name, moment)),
      moment,
      quotedName(table.name),
      quotedName(table.name),
      same);
}

std::vector<std::string> keyTriggers(const Layout& layout, std::string_view toAdd, std::string_view toChange) {
  std::vector<std::string> triggers;
  for (const Table& table : layout.tables) {
    if (table.key.empty()) continue;
    triggers.push_back(keyTrigger(table, "INSERT", toAdd));
    triggers.push_back(keyTrigger(table, "UPDATE", toChange));
  }
  return triggers;
}

}  // namespace

const Column* Table::find(std::string_view column) const {
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& c) { return c.name == column; });
  return found == columns.end() ? nullptr : &*found;
}

bool Table::isKey(std::string_view column) const { return std::find(key.begin(), key.end(), column) != key.end(); }

const Table* Layout::find(std::string_view table) const {
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const Table& t) { return t.name == table; });
  return found == tables.end() ? nullptr : &*found;
}

std::string quotedName(std::string_view name) {
  std::string quoted{'"'};
  for (const char c : name) quoted += c == '"' ? std::string{"\"\""} : std::string{c};
  return quoted + '"';
}

std::string creationScript(const Layout& layout) {
  std::string script =
      fmt::format("PRAGMA application_id = {};\nPRAGMA user_version = {};\n", layout.applicationId, layout.version);
  for (const Table& table : layout.tables) {
    std::string columns;
    for (const Column& column : table.columns)
      columns += fmt::format("{}{}{}", columns.empty() ? "" : ", ", quotedName(column.name), declaration(column.type));
    script += fmt::format("CREATE TABLE {} ({});\n", quotedName(table.name), columns);
  }
  return script;
}

std::vector<std::string> keyTriggers(const Layout& layout) { return keyTriggers(layout, "", "rowid <> OLD.rowid"); }

std::vector<std::string> formerKeyTriggers(const Layout& layout) {
  return keyTriggers(layout, "rowid <> NEW.rowid", "rowid <> NEW.rowid");
}

}  // namespace noldarz
