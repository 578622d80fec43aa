// What the store promises under failure: a killed process, a second process, a full disk, a read-only file.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "platform/store/recordset.h"
#include "support/process.h"
#include "support/small_store.h"

namespace noldarz {
namespace {

using std::chrono::microseconds;
using test::inProcess;
using test::openStore;
using test::statusOf;

const std::string runsQuery = "SELECT * FROM maimTbl4All ORDER BY rowid";

/// Writes a run row whose every figure is the same.
void writeRun(Recordset& run, int figure) {
  for (int i = 0; i < 6; ++i)
    for (const char* column : {"bgnptn", "endptn"}) run.set(column + std::to_string(i), double(figure));
  run.set("wndvel", double(figure));
  run.set("scenariotxtUser", std::to_string(figure));
  run.update();
}

void addRun(const std::shared_ptr<Database>& study, const std::string& key, int figure) {
  Recordset runs{study, runsQuery};
  runs.addNew();
  runs.set("OrgName", "Acme");
  runs.set("refNo", "R1");
  runs.set("scenariotxt", key);
  writeRun(runs, figure);
}

/// Checks that every figure of every row is the same; the highest of them.
int soundRows(const std::filesystem::path& file) {
  const auto study = std::make_shared<Database>(file, test::smallLayout(), Database::Check::full);
  int highest = 0;
  for (Recordset runs{study, runsQuery}; !runs.eof(); runs.moveNext()) {
    const std::string row = textOf(runs.value("scenariotxtUser"));
    for (const char* column : {"bgnptn0", "endptn0", "bgnptn3", "endptn5", "wndvel"})
      EXPECT_EQ(textOf(runs.value(column)), row) << column;
    highest = std::max(highest, std::stoi(row));
  }
  return highest;
}

TEST(Durability, aKilledProcessLeavesEveryRowWhollyBeforeOrAfter) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  for (int i = 0; i < 3; ++i) addRun(openStore(folder.study()), std::to_string(i), 0);
  std::mt19937 random{1};
  int latest = 0;
  for (int kills = 0; kills < 200; ++kills) {
    int pipe_[2];
    ASSERT_EQ(pipe(pipe_), 0);
    const pid_t writer = inProcess([&] {
      const auto study = openStore(folder.study());
      Recordset runs{study, runsQuery};
      for (int next = latest + 1;; ++next) {
        runs.moveFirst();
        for (int i = 0; i < next % 3; ++i) runs.moveNext();
        runs.edit();
        writeRun(runs, next);
        if (next % 50 == 0) addRun(study, "new " + std::to_string(next), next);
        if (write(pipe_[1], &next, sizeof next) != sizeof next) return 1;  // told to be stored
      }
    });
    close(pipe_[1]);
    int told = 0;
    ASSERT_EQ(read(pipe_[0], &told, sizeof told), ssize_t{sizeof told});
    std::this_thread::sleep_for(microseconds(std::uniform_int_distribution{0, 15000}(random)));
    kill(writer, SIGKILL);
    ASSERT_EQ(statusOf(writer), -SIGKILL);
    while (read(pipe_[0], &told, sizeof told) == ssize_t{sizeof told}) {
    }
    close(pipe_[0]);
    latest = soundRows(folder.study());
    ASSERT_GE(latest, told);  // what was told to be stored is stored
    ASSERT_FALSE(HasFailure());
  }
}

TEST(Durability, twoProcessesThatWriteByTurnsLoseNothing) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  constexpr int runsEach = 100;
  std::vector<pid_t> writers;
  for (const char* name : {"a", "b"})
    writers.push_back(inProcess([&] {
      const auto study = openStore(folder.study());
      for (int i = 0; i < runsEach; ++i) addRun(study, name + std::to_string(i), i);
      return 0;
    }));
  for (const pid_t writer : writers) EXPECT_EQ(statusOf(writer), 0);
  EXPECT_EQ(Recordset(openStore(folder.study()), runsQuery).recordCount(), 2 * runsEach);
}

TEST(Durability, aStepThatWaitedInVainFailsAndTheNextOneWorks) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  const auto study = openStore(folder.study());
  addRun(study, "a", 1);
  const auto other = openStore(folder.study());
  other->run("BEGIN IMMEDIATE");
  Recordset run{study, runsQuery};
  run.edit();
  try {
    writeRun(run, 2);
    FAIL() << "wrote through a lock";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.reason(), FailureNumber::storeLocked);
  }
  EXPECT_EQ(textOf(Recordset(study, runsQuery).value("wndvel")), "1");
  other->run("ROLLBACK");
  run.update();  // still open
  EXPECT_EQ(textOf(Recordset(study, runsQuery).value("wndvel")), "2");
}

TEST(Durability, aFullDiskFailsTheStepAndKeepsTheStudy) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  addRun(openStore(folder.study()), "a", 1);
  const auto fill = [&](const std::shared_ptr<Database>& study) {
    for (int i = 0; i < 10000; ++i) try {
        addRun(study, "filler " + std::to_string(i), 1);
      } catch (const RuntimeFailure& failure) {
        return failure.number();
      }
    return 0;
  };
  const auto full = openStore(folder.study());
  full->run("PRAGMA max_page_count = 20");
  EXPECT_EQ(fill(full), static_cast<int>(FailureNumber::storeFull));
  EXPECT_EQ(soundRows(folder.study()), 1);

  // The same when the system refuses to let the file grow, in the middle of a write.
  const auto size = std::filesystem::file_size(folder.study());
  const pid_t writer = inProcess([&] {
    const auto study = openStore(folder.study());
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{size + 4096, size + 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    if (fill(study) == 0) return 1;
    return Recordset(study, runsQuery).recordCount() > 1 ? 0 : 2;  // the study is read as ever
  });
  EXPECT_EQ(statusOf(writer), 0);
  EXPECT_EQ(soundRows(folder.study()), 1);
}

TEST(Durability, aReadOnlyStudyIsReadAndNotWritten) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  addRun(openStore(folder.study()), "a", 1);
  const std::string before = test::readFile(folder.study());
  std::filesystem::permissions(folder.study(), std::filesystem::perms{0444});
  std::filesystem::permissions(folder / "", std::filesystem::perms{0755});
  const pid_t reader = inProcess([&] {
    if (geteuid() == 0 && seteuid(65534) != 0) return 3;
    const auto study = openStore(folder.study());
    Recordset run{study, runsQuery};
    if (run.recordCount() != 1) return 1;
    run.edit();
    try {
      writeRun(run, 2);
    } catch (const RuntimeFailure& failure) {
      return failure.reason() == FailureNumber::readOnly ? 0 : 2;
    }
    return 4;
  });
  EXPECT_EQ(statusOf(reader), 0);
  EXPECT_EQ(test::readFile(folder.study()), before);
}

}  // namespace
}  // namespace noldarz
