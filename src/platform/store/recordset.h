// The rows that one query text found, and the way to write them. The text runs as it stands; the engine's metadata
// tells which table and column a cell comes from, so that a row can be edited and one be added. Used by DataLink and by
// fronts that read the study.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/database.h"

namespace noldarz {

class Recordset {
 public:
  /// To write a row, the engine is asked for its number in the table beside the columns of the query.
  enum class Access : std::uint8_t { read, write };

  /// Runs the query, which must be a single reading statement, and stands on its first row. All rows are read at once,
  /// so RecordCount is their true number. Fails with a StoreFailure.
  Recordset(std::shared_ptr<Database> database, const std::string& query, Access access = Access::write);

  int recordCount() const { return static_cast<int>(rows_.size()); }
  bool eof() const { return at_ >= rows_.size(); }
  /// Position of the current row, from 0; -1 when there is none.
  int absolutePosition() const { return eof() ? -1 : static_cast<int>(at_); }
  /// Moving drops what is open for writing. moveFirst fails with noCurrentRow when there are no rows, moveNext after
  /// the last.
  void moveFirst();
  void moveNext();

  const std::vector<std::string>& columns() const { return columns_; }
  /// Position of the column in the select list, its name compared without regard to case; nothing when it isn't there.
  std::optional<int> find(std::string_view column) const;
  /// Whether the column takes numbers (and marks in their place).
  bool isNumber(int column) const { return types_.at(static_cast<std::size_t>(column)) == ColumnType::number; }

  /// A cell of the current row, or of what is open for writing. Fails with noCurrentRow or noSuchColumn.
  const Cell& value(int column) const;
  const Cell& value(std::string_view column) const { return value(position(column)); }

  /// Opens the current row for writing; goes on with what is open already. Fails with noCurrentRow, and with readOnly
  /// for a query whose rows can't be told apart in one table.
  void edit();
  /// Opens a new row for writing, with nothing in its cells.
  void addNew();
  bool isOpenForWriting() const { return mode_ != Mode::closed; }
  bool isAdding() const { return mode_ == Mode::add; }
  /// Sets a cell of what is open for writing. A text that is a number becomes one in a number column, an empty one
  /// becomes nothing; any other text (a mark) stays. Fails with updateUnopened or noSuchColumn.
  void set(int column, Cell value);
  void set(std::string_view column, Cell value) { set(position(column), std::move(value)); }
  /// Stores the cells that were set, in one durable transaction; a new row becomes the current one. Fails with
  /// updateUnopened when nothing is open, with duplicateKey for a new row that is there already, with storeFailed when
  /// what is read back is not what was written, and as Database::transact does: the row is then as before, and stays
  /// open.
  void update();
  /// Drops what is open for writing.
  void cancelUpdate();

 private:
  enum class Mode : std::uint8_t { closed, edit, add };
  struct Row {
    std::int64_t id = 0;
    std::vector<Cell> cells;
  };

  int position(std::string_view column) const;
  void takeColumns(const Statement& statement);
  bool readWithIds(std::string_view rest);
  void readRows(Statement& statement, bool withIds);
  void requireWritable() const;
  void storeChanges();
  void storeNewRow();
  /// Fails with storeFailed unless the row reads back as it was written.
  void requireStored(std::int64_t row) const;
  /// Fails with duplicateKey when the table has a row with the key of the new one.
  void requireNewKey() const;

  std::shared_ptr<Database> database_;
  std::vector<std::string> columns_;
  std::vector<ColumnType> types_;
  std::string table_;  // the one table that all cells come from; empty: the rows can't be written
  std::vector<Row> rows_;
  std::size_t at_ = 0;
  Mode mode_ = Mode::closed;
  std::map<int, Cell> changes_;
};

}  // namespace noldarz
