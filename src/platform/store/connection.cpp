#include "platform/store/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/store/any_case.h"
#include "platform/store/store_failure.h"

namespace noldarz {

namespace {

using Purpose = Connection::Purpose;

constexpr std::chrono::seconds longestWait{5};  // for another program that writes
constexpr std::chrono::milliseconds pause{20};
constexpr int operationsPerLook = 5000;  // between two looks at the clock

// What a statement may take; a damaged or hostile file claims more.
constexpr std::array limits{std::pair{SQLITE_LIMIT_LENGTH, 16'000'000},  // bytes of a cell
                            std::pair{SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
                            std::pair{SQLITE_LIMIT_EXPR_DEPTH, 100},
                            std::pair{SQLITE_LIMIT_COMPOUND_SELECT, 20},
                            std::pair{SQLITE_LIMIT_VDBE_OP, 100'000},
                            std::pair{SQLITE_LIMIT_FUNCTION_ARG, 20},
                            std::pair{SQLITE_LIMIT_ATTACHED, 0},
                            std::pair{SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 100},
                            std::pair{SQLITE_LIMIT_VARIABLE_NUMBER, 1000},
                            std::pair{SQLITE_LIMIT_TRIGGER_DEPTH, 3},
                            std::pair{SQLITE_LIMIT_WORKER_THREADS, 0}};

constexpr std::array switches{std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                              std::pair{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                              std::pair{SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                              std::pair{SQLITE_DBCONFIG_ENABLE_FKEY, 0},
                              std::pair{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                              std::pair{SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0}};

constexpr std::array<std::string_view, 39> functions{
    "abs",     "avg",          "char",  "coalesce", "count",    "date",   "datetime",  "format",
    "glob",    "group_concat", "hex",   "ifnull",   "iif",      "instr",  "julianday", "length",
    "like",    "lower",        "ltrim", "max",      "min",      "nullif", "printf",    "quote",
    "replace", "round",        "rtrim", "sign",     "strftime", "substr", "substring", "sum",
    "time",    "total",        "trim",  "typeof",   "unicode",  "upper",  "zeroblob"};

constexpr std::array<std::string_view, 11> pragmas{"application_id",
                                                   "cell_size_check",
                                                   "ignore_check_constraints",
                                                   "integrity_check",
                                                   "journal_mode",
                                                   "max_page_count",
                                                   "mmap_size",
                                                   "quick_check",
                                                   "schema_version",
                                                   "synchronous",
                                                   "user_version"};

template <class Names>
bool holds(const Names& names, const char* name) {
  return name && std::find(names.begin(), names.end(), std::string_view{name}) != names.end();
}

/// Whether a statement may do it. `name`: of a pragma or a table; `function`: of a function.
bool isAllowed(Purpose purpose, int action, const char* name, const char* function) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE: return true;
    case SQLITE_FUNCTION: return holds(functions, function);
    case SQLITE_PRAGMA: return holds(pragmas, name);
    case SQLITE_TRANSACTION: return purpose != Purpose::query;
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
      return purpose == Purpose::making || (purpose == Purpose::rows && !std::string_view{name}.starts_with("sqlite_"));
    case SQLITE_CREATE_TABLE:
    case SQLITE_CREATE_TRIGGER: return purpose == Purpose::making;
    default: return false;
  }
}

int compareTexts(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return compareWithoutCase({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                            {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

}  // namespace

Connection::Connection(const std::filesystem::path& file, Purpose purpose)
    : purpose_(purpose), handle_(nullptr, sqlite3_close) {
  sqlite3* handle = nullptr;
  int flags = SQLITE_OPEN_EXRESCODE | (purpose == Purpose::query ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
  if (purpose == Purpose::making) flags |= SQLITE_OPEN_CREATE;
  const int result = sqlite3_open_v2(file.c_str(), &handle, flags, vfs_.name());
  handle_.reset(handle);
  if (result != SQLITE_OK)
    throw StoreFailure(FailureNumber::noSuchFile, file.string() + " can't be opened: " + sqlite3_errstr(result));
  setUp();
}

void Connection::setUp() {
  for (const auto& [limit, value] : limits) sqlite3_limit(handle(), limit, value);
  for (const auto& [name, value] : switches) sqlite3_db_config(handle(), name, value, nullptr);
  sqlite3_drop_modules(handle(), nullptr);  // no virtual tables
  sqlite3_create_collation(handle(), anyCase, SQLITE_UTF8, nullptr, compareTexts);
  sqlite3_busy_handler(handle(), waitForOthers, this);
  sqlite3_progress_handler(handle(), operationsPerLook, isTimeUp, this);
  sqlite3_set_authorizer(handle(), authorize, this);
  startClock();
  // Checks of another program's tables would run here too; a study that has any is not written to.
  std::string setting = "PRAGMA mmap_size = 0; PRAGMA cell_size_check = ON; PRAGMA ignore_check_constraints = ON;";
  setting += purpose_ == Purpose::making ? "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF"
                                         : "PRAGMA synchronous = EXTRA";
  sqlite3_exec(handle(), setting.c_str(), nullptr, nullptr, nullptr);
}

int Connection::waitForOthers(void* self, int attempts) {
  auto& connection = *static_cast<Connection*>(self);
  if (connection.waitedInVain_) return 0;
  if (attempts == 0) connection.waitsUntil_ = Clock::now() + longestWait;
  connection.waitedInVain_ = Clock::now() >= connection.waitsUntil_;
  if (connection.waitedInVain_) return 0;
  std::this_thread::sleep_for(pause);
  connection.startClock();
  return 1;
}

int Connection::authorize(void* self, int action, const char* name, const char* function, const char*, const char*) {
  return isAllowed(static_cast<const Connection*>(self)->purpose_, action, name, function) ? SQLITE_OK : SQLITE_DENY;
}

int Connection::isTimeUp(void* self) { return Clock::now() > static_cast<const Connection*>(self)->deadline_ ? 1 : 0; }

}  // namespace noldarz
