// A connection to the file of a study, set up so that nothing in the file is trusted. The one place that opens one.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "platform/store/study_vfs.h"

struct sqlite3;

namespace noldarz {

class Connection {
 public:
  enum class Purpose : std::uint8_t {
    query,   ///< reads only, in every way
    rows,    ///< reads and writes rows
    making,  ///< makes the tables of an empty file, which nobody else has open
  };

  /// Fails with a StoreFailure (noSuchFile).
  Connection(const std::filesystem::path& file, Purpose purpose);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* handle() const { return handle_.get(); }
  /// Why the engine was refused a file since this was asked last; empty when it was not.
  std::string takeFaultOfFiles() { return vfs_.takeFault(); }

  static constexpr std::chrono::seconds usualLimit{60};
  /// How long a step of a statement may compute before it is given up (SQLITE_INTERRUPT).
  void limitSteps(std::chrono::seconds limit) { limit_ = limit; }
  /// A step begins.
  void startClock() const { deadline_ = Clock::now() + limit_; }

  /// The user acts anew. Within an act one step waits for another program that writes, and once it has waited in vain
  /// the next ones don't wait.
  void beginAct() { waitedInVain_ = false; }

 private:
  using Clock = std::chrono::steady_clock;

  void setUp();
  static int waitForOthers(void* self, int attempts);
  static int isTimeUp(void* self);
  static int authorize(void* self, int action, const char* name, const char* function, const char* database,
                       const char* trigger);

  Purpose purpose_;
  StudyVfs vfs_;
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_;
  std::chrono::seconds limit_ = usualLimit;
  mutable Clock::time_point deadline_;
  Clock::time_point waitsUntil_;
  bool waitedInVain_ = false;
};

}  // namespace noldarz
