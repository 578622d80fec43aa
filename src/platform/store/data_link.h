// A link between fields of a view and one row of the study: it runs its record source, shows the current row in the
// fields bound to it, and stores an edit of a bound field with the next Refresh or Update. The logic reaches the study
// through links only.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/field.h"
#include "platform/store/recordset.h"

namespace noldarz {

class DataLink {
 public:
  /// Whether a text may go from a field into its column; "" or why not.
  using Accepts = std::function<std::string(const std::string& text)>;
  using Tells = std::function<void(const std::string&)>;

  /// `refused` hears of an edit that could not be stored, `stored` of what was, in words for the user.
  explicit DataLink(Databases& databases, Tells refused = {}, Tells stored = {})
      : databases_(databases), refused_(std::move(refused)), stored_(std::move(stored)) {}
  DataLink(const DataLink&) = delete;
  DataLink& operator=(const DataLink&) = delete;

  /// Binds a field to a column, in place of the column it had. A label shows its column and never writes it. `words`
  /// tells the user what was stored, with "{}" for the text: "height of release {} m". `nothing`: what a cell without a
  /// value is shown as.
  void bind(Field& field, std::string column, Accepts accepts = {}, std::string words = {}, std::string nothing = {});
  /// What is done before the row is opened for writing: the link may stand on another row afterwards. It fails when
  /// there is none to write to.
  void beforeEdit(std::function<void()> prepare) { prepare_ = std::move(prepare); }
  void prepare() {
    if (prepare_) prepare_();
  }

  /// Both hold from the next Refresh on.
  void setDatabaseName(const std::filesystem::path& file) { file_ = file; }
  void setRecordSource(const std::string& query) { recordSource_ = query; }
  const std::string& recordSource() const { return recordSource_; }

  /// Stores pending edits to the row that the link stands on, runs the query again, and shows its first row. Edits that
  /// wait for another program (storeLocked) stay pending, and the link on its row: the refresh fails there. Any other
  /// edit that can't be stored is dropped, so that the fields show what the study holds; the refresh then fails after
  /// its last step. Another query that fails leaves the link without rows.
  void refresh();
  /// Stores pending edits and lets go of the study. Fails, with everything as it was, when they can't be stored.
  void close();
  /// Lets go of the study, without its pending edits.
  void abandon();
  /// The edits that are not stored yet, in words for the user; empty: none.
  std::string pendingEdits() const;

  /// Whether the link stands on a row.
  bool hasRow() const { return rows_ && !rows_->eof(); }
  /// The rows. Fail with noCurrentRow when there are none since a query failed.
  const Recordset& recordset() const;
  int recordCount() const { return recordset().recordCount(); }
  bool eof() const { return recordset().eof(); }
  int absolutePosition() const { return recordset().absolutePosition(); }
  const Cell& value(int column) const { return recordset().value(column); }
  const Cell& value(std::string_view column) const { return recordset().value(column); }
  std::string text(std::string_view column) const { return textOf(value(column)); }

  /// Move, and show the row in the bound fields. A pending edit is stored first.
  void moveFirst();
  void moveNext();
  /// Starts a new row and empties the bound fields.
  void addNew();
  /// Stores a new row of these cells, makes it the current one and shows it. Fails with duplicateKey for a row that is
  /// there already; when it fails, fields and row stay as they were.
  void insert(const std::vector<std::pair<std::string_view, Cell>>& cells);
  void edit();
  void set(std::string_view column, Cell value) { rows().set(column, std::move(value)); }
  /// Stores what is open for writing, with pending edits of bound fields. Fails with updateUnopened when nothing is
  /// open.
  void update();

  /// Drops what is open for writing, and shows the current row again.
  void cancelUpdate();

  std::shared_ptr<Database> database() const { return database_; }

 private:
  struct Binding {
    Field* field;
    std::string column;
    Accepts accepts;
    std::string words;
    std::string nothing;
    std::string shown;  // what the link put into the field last
  };

  Recordset& rows();
  bool writes(const Binding& binding) const;
  std::string wordsOf(const Binding& binding) const;
  std::vector<const Binding*> takePendingEdits();
  void save();
  void readRows();
  void show();
  void show(Binding& binding);

  Databases& databases_;
  Tells refused_;
  Tells stored_;
  std::function<void()> prepare_;
  std::vector<Binding> bindings_;
  std::filesystem::path file_;
  std::string recordSource_;
  std::string rowsSource_;  // the query that found rows_
  std::shared_ptr<Database> database_;
  std::optional<Recordset> rows_;
};

/// The text of a cell. Fails with typeMismatch for a cell without a value.
std::string textIn(const DataLink& row, std::string_view column);

/// Fetches True (-1) or False (0) of a cell; nothing is False.
bool isTrue(const Cell& cell);
/// The cell of a truth value.
inline Cell truth(bool value) { return std::int64_t{value ? -1 : 0}; }

}  // namespace noldarz
