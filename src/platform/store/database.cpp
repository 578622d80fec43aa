#include "platform/store/database.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "platform/store/file_kind.h"
#include "platform/store/foreign_schema.h"
#include "platform/store/store_failure.h"

namespace noldarz {

namespace {

constexpr std::chrono::minutes longestCheck{10};  // of a whole file
constexpr std::string_view integrity{"ok"};       // what the engine answers for a sound file

struct Mapping {
  int result;
  FailureNumber reason;
  std::string_view text;  // after the file's name; with a colon at its end: what the engine says follows
};

constexpr std::array mappings{
    Mapping{SQLITE_BUSY, FailureNumber::storeLocked, "is held by another program"},
    Mapping{SQLITE_LOCKED, FailureNumber::storeLocked, "is held by another program"},
    Mapping{SQLITE_READONLY, FailureNumber::readOnly, "is read-only"},
    Mapping{SQLITE_PERM, FailureNumber::readOnly, "is read-only"},
    Mapping{SQLITE_FULL, FailureNumber::storeFull, "can't be written: the disk is full"},
    Mapping{SQLITE_CORRUPT, FailureNumber::storeDamaged, "is damaged"},
    Mapping{SQLITE_NOTADB, FailureNumber::notAStudy, "is no study"},
    Mapping{SQLITE_CANTOPEN, FailureNumber::noSuchFile, "can't be opened"},
    Mapping{SQLITE_IOERR, FailureNumber::storeFailed, "can't be read or written"},
    Mapping{SQLITE_INTERRUPT, FailureNumber::storeFailed, "takes too long to read or write and was given up"},
    Mapping{SQLITE_AUTH, FailureNumber::querySyntax, "refuses the query: "},
    Mapping{SQLITE_CONSTRAINT, FailureNumber::duplicateKey, "refuses the row: "},
    Mapping{SQLITE_ERROR, FailureNumber::querySyntax, "refuses the query: "},
};

/// Device and number of the file that the path leads to; zeros when it leads nowhere.
std::pair<std::uint64_t, std::uint64_t> identityOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return {};
  return {status.st_dev, status.st_ino};
}

}  // namespace

Statement::Statement(const Database& database, std::string_view text)
    : database_(database), handle_(nullptr, sqlite3_finalize) {
  sqlite3_stmt* handle = nullptr;
  const char* rest = nullptr;
  database.connection().startClock();
  const int result = sqlite3_prepare_v2(database.handle(), text.data(), static_cast<int>(text.size()), &handle, &rest);
  handle_.reset(handle);
  if (result != SQLITE_OK) database.failWith(result);
  const std::string_view rests = text.substr(static_cast<std::size_t>(rest - text.data()));
  if (!handle || rests.find_first_not_of(" \t\r\n;") != std::string_view::npos)
    throw StoreFailure(FailureNumber::querySyntax, "the query is no single statement");
}

void Statement::bind(int parameter, const Cell& value) {
  const int result = std::visit(
      [&]<class T>(const T& v) {
        if constexpr (std::is_same_v<T, std::monostate>) return sqlite3_bind_null(handle(), parameter);
        if constexpr (std::is_same_v<T, std::int64_t>) return sqlite3_bind_int64(handle(), parameter, v);
        if constexpr (std::is_same_v<T, double>) return sqlite3_bind_double(handle(), parameter, v);
        if constexpr (std::is_same_v<T, std::string>)
          return sqlite3_bind_text(handle(), parameter, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
      },
      value);
  if (result != SQLITE_OK) database_.failWith(result);
}

bool Statement::step() {
  database_.connection().startClock();
  const int result = sqlite3_step(handle());
  if (result != SQLITE_ROW && result != SQLITE_DONE) database_.failWith(result);
  return result == SQLITE_ROW;
}

int Statement::columnCount() const { return sqlite3_column_count(handle_.get()); }

bool Statement::isBlob(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_BLOB; }

void Statement::reset() { sqlite3_reset(handle_.get()); }

Cell Statement::cell(int column) const {
  switch (sqlite3_column_type(handle(), column)) {
    case SQLITE_NULL: return {};
    case SQLITE_INTEGER: return std::int64_t{sqlite3_column_int64(handle(), column)};
    case SQLITE_FLOAT: return sqlite3_column_double(handle(), column);
    default: {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(handle(), column));
      return std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(handle(), column)));
    }
  }
}

Database::Database(std::filesystem::path file, const Layout& layout, Check check, Connection::Purpose purpose)
    : file_(std::move(file)), layout_(&layout), identity_(identityOf(file_)) {
  if (const std::string fault = faultOfFile(file_); !fault.empty())
    refuse(identity_.second == 0 ? FailureNumber::noSuchFile : FailureNumber::notAStudy, fault);
  connection_ = std::make_unique<Connection>(file_, purpose);
  if (check == Check::none) return;
  readSchema();
  checkLayout();
  checkPages(check);
}

Database::Database(std::filesystem::path file, const Layout& layout, const std::function<void(const Database&)>& fill)
    : file_(std::move(file)),
      layout_(&layout),
      identity_(identityOf(file_)),
      connection_(std::make_unique<Connection>(file_, Connection::Purpose::making)) {
  run("BEGIN;" + creationScript(layout));
  if (fill) fill(*this);
  for (const std::string& trigger : keyTriggers(layout)) run(trigger);
  run("COMMIT");
}

std::int64_t Database::schemaVersion() const {
  Statement version{*this, "PRAGMA schema_version"};
  version.step();
  return static_cast<std::int64_t>(numberOf(version.cell(0)));
}

void Database::readSchema() const {
  schemaRead_ = schemaVersion();
  foreign_.clear();
  Statement entries{*this, "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL"};
  while (entries.step())
    if (const std::string actor = foreignActor(textOf(entries.cell(0)), *layout_); !actor.empty())
      foreign_ += (foreign_.empty() ? "" : ", ") + actor;
}

void Database::checkLayout() const {
  Statement version{*this, "PRAGMA user_version"};
  version.step();
  if (numberOf(version.cell(0)) > layout_->version)
    refuse(FailureNumber::notAStudy, "comes from a newer version of the program");
  for (const Table& table : layout_->tables) {
    Statement made{*this, "SELECT sql FROM sqlite_schema WHERE name = ? COLLATE NOCASE"};
    made.bind(1, std::string{table.name});
    if (!made.step())
      refuse(FailureNumber::notAStudy, fmt::format("is a database but no study: it has no table {}", table.name));
    if (const std::string fault = faultOfTable(textOf(made.cell(0))); !fault.empty())
      refuse(FailureNumber::notAStudy, fmt::format("can't be used: its table {} {}", table.name, fault));
    for (const Column& column : table.columns)
      if (!has(table.name, column.name))
        refuse(FailureNumber::notAStudy,
               fmt::format("is a database but no study: its table {} has no column {}", table.name, column.name));
  }
}

bool Database::has(std::string_view table, std::string_view column) const {
  const int result = sqlite3_table_column_metadata(handle(),
                                                   nullptr,
                                                   std::string{table}.c_str(),
                                                   std::string{column}.c_str(),
                                                   nullptr,
                                                   nullptr,
                                                   nullptr,
                                                   nullptr,
                                                   nullptr);
  if (result != SQLITE_OK && result != SQLITE_ERROR) failWith(result);
  return result == SQLITE_OK;
}

void Database::checkPages(Check check) const {
  connection_->limitSteps(longestCheck);
  Statement pages{*this, check == Check::full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)"};
  const bool answered = pages.step();
  connection_->limitSteps(Connection::usualLimit);
  if (!answered) return;
  const std::string found = textOf(pages.cell(0));
  if (found == integrity) return;
  const auto lastLine = found.rfind('\n');  // a head line names the database within the connection
  refuse(FailureNumber::storeDamaged,
         "is damaged: " + (lastLine == std::string::npos ? found : found.substr(lastLine + 1)));
}

bool Database::isCurrent() const { return identityOf(file_) == identity_; }

void Database::run(const std::string& statements) const {
  connection_->startClock();
  if (const int result = sqlite3_exec(handle(), statements.c_str(), nullptr, nullptr, nullptr); result != SQLITE_OK)
    failWith(result);
}

void Database::transact(const std::function<void()>& statements) const {
  run("BEGIN IMMEDIATE");
  try {
    if (schemaVersion() != schemaRead_) readSchema();  // another program may have changed it meanwhile
    if (!foreign_.empty())
      refuse(FailureNumber::readOnly,
             "is not written to: it holds " + foreign_ + ", which would act on what is stored");
    if (!isCurrent()) refuse(FailureNumber::storeFailed, "was replaced by another file");
    statements();
    run("COMMIT");
  } catch (...) {
    sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);  // the engine may have rolled back already
    throw;
  }
}

void Database::failWith(int result) const {
  if (const std::string fault = connection_->takeFaultOfFiles(); !fault.empty())
    refuse(FailureNumber::notAStudy, fault);
  const std::string engine = sqlite3_errmsg(handle());
  const auto mapping =
      std::find_if(mappings.begin(), mappings.end(), [&](const Mapping& m) { return m.result == (result & 0xff); });
  if (mapping == mappings.end()) refuse(FailureNumber::storeFailed, "failed: " + engine);
  refuse(mapping->reason, std::string{mapping->text} + (mapping->text.ends_with(": ") ? engine : ""));
}

void Database::refuse(FailureNumber reason, const std::string& text) const {
  throw StoreFailure(reason, file_.string() + " " + text);
}

std::shared_ptr<Database> Databases::open(const std::filesystem::path& file) {
  auto database = database_.lock();
  if (database && path_ == file && database->isCurrent()) return database;
  database = std::make_shared<Database>(file, layout_);
  path_ = file;
  database_ = database;
  return database;
}

void createDatabase(const std::filesystem::path& file, const Layout& layout,
                    const std::function<void(const Database&)>& fill) {
  const Database made{file, layout, fill};
}

}  // namespace noldarz
