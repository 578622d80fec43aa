// The layout of a database as the program relies on it: tables, columns with their types, keys. A file may hold more.
// The study's own layout stands in study/layout.h; the store works on any.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

enum class ColumnType : std::uint8_t {
  text,     ///< compared without regard to case
  number,   ///< a number, or a text that stands in its place (a mark)
  boolean,  ///< True is -1, False is 0
  any       ///< as it was stored
};

struct Column {
  std::string_view name;
  ColumnType type;
};

struct Table {
  std::string_view name;
  std::span<const Column> columns;
  std::span<const std::string_view> key;  ///< columns that tell one row from another; none: rows have no key

  /// The column of that name, compared exactly; null when there is none.
  const Column* find(std::string_view column) const;
  bool isKey(std::string_view column) const;
};

struct Layout {
  std::span<const Table> tables;
  std::int32_t applicationId;  ///< stands in the head of every file that the program made
  int version;                 ///< a file of a higher version comes from a newer program

  const Table* find(std::string_view table) const;
};

/// The statements that make the tables of the layout in an empty database.
std::string creationScript(const Layout& layout);

/// The statements of the triggers that keep the keys. Triggers and not indexes: a study that another program has made
/// may hold a key twice.
std::vector<std::string> keyTriggers(const Layout& layout);

/// Those that an earlier version of the program made.
std::vector<std::string> formerKeyTriggers(const Layout& layout);

/// The name as it stands in a statement: in double quotes.
std::string quotedName(std::string_view name);

}  // namespace noldarz
