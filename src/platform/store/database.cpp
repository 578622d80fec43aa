#include "platform/store/database.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unicase.h>

#include <algorithm>
#include <array>
#include <compare>

#include "platform/store/file_kind.h"
#include "platform/store/store_failure.h"

namespace noldarz {

namespace {

constexpr int busyTimeout = 5000;            // ms
constexpr int longestText = 16'000'000;      // bytes of a cell or a statement; a damaged file may claim more
constexpr std::string_view integrity{"ok"};  // what the engine answers for a sound file

struct Mapping {
  int result;
  FailureNumber reason;
  std::string_view text;  // behind the file's name; with a colon at its end: what the engine says follows
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
    Mapping{SQLITE_CONSTRAINT, FailureNumber::duplicateKey, "refuses the row: "},
    Mapping{SQLITE_ERROR, FailureNumber::querySyntax, "refuses the query: "},
};

int compareTexts(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return compareWithoutCase({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                            {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

/// Device and number of the file that the path leads to; zeros when it leads nowhere.
std::pair<std::uint64_t, std::uint64_t> identityOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return {};
  return {status.st_dev, status.st_ino};
}

std::unique_ptr<sqlite3, int (*)(sqlite3*)> openHandle(const std::filesystem::path& file, int flags) {
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(file.c_str(), &handle, flags | SQLITE_OPEN_EXRESCODE, nullptr);
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner{handle, sqlite3_close};
  if (result != SQLITE_OK)
    throw StoreFailure(FailureNumber::noSuchFile, file.string() + " can't be opened: " + sqlite3_errstr(result));
  return owner;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

int compareWithoutCase(std::string_view a, std::string_view b) {
  // Names of columns are: the folding of any script takes a hundred times as long.
  if (isAscii(a) && isAscii(b)) {
    const auto order = std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) <=> lower(y); });
    return static_cast<int>(std::is_gt(order)) - static_cast<int>(std::is_lt(order));
  }
  const auto bytes = [](std::string_view text) { return reinterpret_cast<const std::uint8_t*>(text.data()); };
  int order = 0;
  if (u8_casecmp(bytes(a), a.size(), bytes(b), b.size(), nullptr, nullptr, &order) == 0) return order;
  return a.compare(b);  // not UTF-8: byte by byte
}

Statement::Statement(const Database& database, std::string_view text)
    : database_(database), handle_(nullptr, sqlite3_finalize) {
  sqlite3_stmt* handle = nullptr;
  const char* rest = nullptr;
  const int result = sqlite3_prepare_v2(database.handle(), text.data(), static_cast<int>(text.size()), &handle, &rest);
  handle_.reset(handle);
  if (result != SQLITE_OK) database.failWith(result);
  const std::string_view behind = text.substr(static_cast<std::size_t>(rest - text.data()));
  if (!handle || behind.find_first_not_of(" \t\r\n;") != std::string_view::npos)
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
  const int result = sqlite3_step(handle());
  if (result != SQLITE_ROW && result != SQLITE_DONE) database_.failWith(result);
  return result == SQLITE_ROW;
}

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

Database::Database(std::filesystem::path file, const Layout& layout, Check check)
    : file_(std::move(file)), layout_(&layout), identity_(identityOf(file_)), handle_(nullptr, sqlite3_close) {
  if (const std::string fault = faultOfFile(file_); !fault.empty())
    refuse(identity_.second == 0 ? FailureNumber::noSuchFile : FailureNumber::notAStudy, fault);
  handle_ = openHandle(file_, SQLITE_OPEN_READWRITE);
  configure();
  checkLayout();
  checkPages(check);
}

void Database::configure() const {
  sqlite3_busy_timeout(handle(), busyTimeout);
  sqlite3_create_collation(handle(), "NOCASE", SQLITE_UTF8, nullptr, compareTexts);
  // The file comes from elsewhere and may be damaged: nothing in its schema is trusted.
  sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(handle(), SQLITE_LIMIT_LENGTH, longestText);
  run("PRAGMA cell_size_check = ON; PRAGMA synchronous = EXTRA");
}

void Database::checkLayout() const {
  Statement version{*this, "PRAGMA user_version"};
  version.step();
  if (numberOf(version.cell(0)) > layout_->version)
    refuse(FailureNumber::notAStudy, "comes from a newer version of the program");
  for (const Table& table : layout_->tables) {
    if (!has(table.name))
      refuse(FailureNumber::notAStudy, fmt::format("is a database but no study: it has no table {}", table.name));
    for (const Column& column : table.columns)
      if (!has(table.name, column.name))
        refuse(FailureNumber::notAStudy,
               fmt::format("is a database but no study: its table {} has no column {}", table.name, column.name));
  }
}

bool Database::has(std::string_view table, std::string_view column) const {
  const std::string columnName{column};
  const int result = sqlite3_table_column_metadata(handle(),
                                                   nullptr,
                                                   std::string{table}.c_str(),
                                                   column.empty() ? nullptr : columnName.c_str(),
                                                   nullptr,
                                                   nullptr,
                                                   nullptr,
                                                   nullptr,
                                                   nullptr);
  if (result != SQLITE_OK && result != SQLITE_ERROR) failWith(result);
  return result == SQLITE_OK;
}

void Database::checkPages(Check check) const {
  Statement pages{*this, check == Check::full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)"};
  if (!pages.step()) return;
  const std::string found = textOf(pages.cell(0));
  if (found == integrity) return;
  const auto lastLine = found.rfind('\n');  // a head line names the database within the connection
  refuse(FailureNumber::storeDamaged,
         "is damaged: " + (lastLine == std::string::npos ? found : found.substr(lastLine + 1)));
}

bool Database::isCurrent() const { return identityOf(file_) == identity_; }

void Database::run(const std::string& statements) const {
  if (const int result = sqlite3_exec(handle(), statements.c_str(), nullptr, nullptr, nullptr); result != SQLITE_OK)
    failWith(result);
}

void Database::transact(const std::function<void()>& statements) const {
  run("BEGIN IMMEDIATE");
  try {
    if (!isCurrent()) refuse(FailureNumber::storeFailed, "was replaced by another file");
    statements();
    run("COMMIT");
  } catch (...) {
    sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);  // the engine may have rolled back already
    throw;
  }
}

void Database::failWith(int result) const {
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

void createDatabase(const std::filesystem::path& file, const Layout& layout) {
  const auto handle = openHandle(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  if (sqlite3_exec(handle.get(), creationScript(layout).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw StoreFailure(FailureNumber::storeFailed,
                       file.string() + " can't be written: " + sqlite3_errmsg(handle.get()));
}

}  // namespace noldarz
