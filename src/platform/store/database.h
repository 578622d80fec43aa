// One open study file. It checks by content that the file is a study before the engine touches it, compares texts
// without regard to case, waits for another process that writes, and stores with full durability. Recordsets and data
// links work on it; Databases gives all links on one path the same connection.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/cell.h"
#include "platform/store/connection.h"
#include "platform/store/layout.h"

struct sqlite3_stmt;

namespace noldarz {

class Database;

/// One prepared statement.
class Statement {
 public:
  /// Fails with querySyntax for a text that the engine refuses, and for anything after the first statement.
  Statement(const Database& database, std::string_view text);

  /// Binds a value to a parameter, from 1.
  void bind(int parameter, const Cell& value);
  /// The next row; false after the last.
  bool step();
  int columnCount() const;
  /// A cell of the row; bytes that are no text as if they were one.
  Cell cell(int column) const;
  bool isBlob(int column) const;
  /// Back in front of the first row, for other values.
  void reset();
  sqlite3_stmt* handle() const { return handle_.get(); }

 private:
  const Database& database_;
  std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> handle_;
};

class Database {
 public:
  enum class Check : std::uint8_t {
    none,   ///< it was checked when it was opened first
    quick,  ///< schema and structure of the file, as every opening does
    full    ///< every cell and index too
  };

  /// Opens a study that exists. Fails with a StoreFailure that names the file: noSuchFile, notAStudy (an original Jet
  /// database, a text, another database, a newer layout, a journal of something else ...), storeDamaged, storeLocked.
  Database(std::filesystem::path file, const Layout& layout, Check check = Check::quick,
           Connection::Purpose purpose = Connection::Purpose::rows);
  /// Makes the tables in an empty file; `fill` writes rows before their keys are guarded.
  Database(std::filesystem::path file, const Layout& layout, const std::function<void(const Database&)>& fill);

  const std::filesystem::path& file() const { return file_; }
  const Layout& layout() const { return *layout_; }
  sqlite3* handle() const { return connection_->handle(); }
  Connection& connection() const { return *connection_; }

  /// What another program has put into the file that would act on our rows; such a file is not written to. Empty:
  /// nothing.
  const std::string& foreign() const { return foreign_; }
  /// Whether the path still leads to the file that was opened.
  bool isCurrent() const;

  /// Runs statements in one durable transaction: all or nothing. A second process that writes is waited for (5 s).
  void transact(const std::function<void()>& statements) const;
  /// Runs statements that give no row.
  void run(const std::string& statements) const;

  /// Fails with the engine's last error.
  [[noreturn]] void failWith(int result) const;

 private:
  std::int64_t schemaVersion() const;
  void readSchema() const;
  void checkLayout() const;
  bool has(std::string_view table, std::string_view column) const;
  void checkPages(Check check) const;
  [[noreturn]] void refuse(FailureNumber reason, const std::string& text) const;

  std::filesystem::path file_;
  const Layout* layout_;
  std::pair<std::uint64_t, std::uint64_t> identity_;
  std::unique_ptr<Connection> connection_;
  mutable std::string foreign_;
  mutable std::int64_t schemaRead_ = 0;
};

/// The database that is open: links on one path share a connection, which closes with the last of them. A process must
/// not open a study twice while it holds a lock on it, since closing the one lets go of the locks of the other.
class Databases {
 public:
  explicit Databases(const Layout& layout) : layout_(layout) {}
  std::shared_ptr<Database> open(const std::filesystem::path& file);
  /// The user acts anew: a step may wait for another program again.
  void beginAct() const {
    if (const auto database = database_.lock()) database->connection().beginAct();
  }

 private:
  const Layout& layout_;
  std::filesystem::path path_;
  std::weak_ptr<Database> database_;
};

/// Makes a database of the layout in an empty file. Fails with a StoreFailure.
void createDatabase(const std::filesystem::path& file, const Layout& layout,
                    const std::function<void(const Database&)>& fill = {});

}  // namespace noldarz
