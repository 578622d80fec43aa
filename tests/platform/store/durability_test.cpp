// What the store promises under failure: a killed process, a second process, a full disk, a read-only file.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include "platform/store/recordset.h"
#include "support/test_study.h"

namespace noldarz {
namespace {

using std::chrono::microseconds;

const std::string runsQuery = "SELECT * FROM maimTbl4All ORDER BY rowid";

std::shared_ptr<Database> open(const std::filesystem::path& file) {
  return std::make_shared<Database>(file, studyLayout());
}

/// Writes a run row whose every figure is the same.
void writeRun(Recordset& run, int figure) {
  for (int i = 0; i < levelCount; ++i)
    for (const char* column : {"bgnptn", "endptn"}) run.set(column + std::to_string(i), double(figure));
  for (const char* column : {"FtlyYcord", "InjYcord", "isopAngle", "wndvel"}) run.set(column, double(figure));
  run.set("scenariotxtUser", std::to_string(figure));
  run.update();
}

void addRun(const std::shared_ptr<Database>& study, const std::string& key, int figure) {
  Recordset runs{study, runsQuery};
  runs.addNew();
  runs.set("OrgName", "Acme");
  runs.set("refNo", "R1");
  runs.set("scenariotxt", key);
  runs.set("ScenarioOptn", "Dispersion");
  writeRun(runs, figure);
}

/// Runs the work in a process of its own; its exit status is what the work returns.
template <class Work>
pid_t inProcess(Work&& work) {
  const pid_t child = fork();
  if (child != 0) return child;
  int status = 99;
  try {
    status = work();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
  _exit(status);
}

int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(Durability, aKilledProcessLeavesEveryRowWhollyBeforeOrAfter) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  for (int i = 0; i < 3; ++i) addRun(open(folder.study()), std::to_string(i), 0);
  std::mt19937 random{1};
  int figure = 0;
  int latest = 0;
  for (int kill_ = 0; kill_ < 200; ++kill_) {
    const pid_t writer = inProcess([&] {
      const auto study = open(folder.study());
      Recordset runs{study, runsQuery};
      for (int next = figure + 1;; ++next) {
        runs.moveFirst();
        for (int i = 0; i < next % 3; ++i) runs.moveNext();
        runs.edit();
        writeRun(runs, next);
        if (next % 50 == 0) addRun(study, "new " + std::to_string(next), next);
      }
      return 0;
    });
    std::this_thread::sleep_for(microseconds(std::uniform_int_distribution{3000, 30000}(random)));
    kill(writer, SIGKILL);
    ASSERT_EQ(statusOf(writer), -SIGKILL);

    const auto study = std::make_shared<Database>(folder.study(), studyLayout(), Database::Check::full);
    for (Recordset runs{study, runsQuery}; !runs.eof(); runs.moveNext()) {
      const std::string row = textOf(runs.value("scenariotxtUser"));
      for (const char* column : {"bgnptn0", "endptn0", "bgnptn3", "endptn5", "FtlyYcord", "isopAngle", "wndvel"})
        ASSERT_EQ(textOf(runs.value(column)), row) << column;
      latest = std::max(latest, std::stoi(row));
    }
    ASSERT_GE(latest, figure);
    figure = latest;
  }
  EXPECT_GT(latest, 200);  // it did write between the kills
}

TEST(Durability, twoProcessesThatWriteByTurnsLoseNothing) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  constexpr int runsEach = 100;
  std::vector<pid_t> writers;
  for (const char* name : {"a", "b"})
    writers.push_back(inProcess([&] {
      const auto study = open(folder.study());
      for (int i = 0; i < runsEach; ++i) addRun(study, name + std::to_string(i), i);
      return 0;
    }));
  for (const pid_t writer : writers) EXPECT_EQ(statusOf(writer), 0);
  EXPECT_EQ(Recordset(open(folder.study()), runsQuery).recordCount(), 2 * runsEach);
}

TEST(Durability, aStepThatWaitedInVainFailsAndTheNextOneWorks) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  const auto study = open(folder.study());
  addRun(study, "a", 1);
  const auto other = open(folder.study());
  other->run("BEGIN IMMEDIATE");
  Recordset run{study, runsQuery};
  run.edit();
  const auto begin = std::chrono::steady_clock::now();
  try {
    writeRun(run, 2);
    FAIL() << "wrote through a lock";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.reason(), FailureNumber::storeLocked);
  }
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(4900));
  EXPECT_EQ(textOf(Recordset(study, runsQuery).value("wndvel")), "1");
  other->run("ROLLBACK");
  run.update();  // still open
  EXPECT_EQ(textOf(Recordset(study, runsQuery).value("wndvel")), "2");
}

TEST(Durability, aFullDiskFailsTheStepAndKeepsTheStudy) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  addRun(open(folder.study()), "a", 1);
  const auto size = std::filesystem::file_size(folder.study());
  const pid_t writer = inProcess([&] {
    const auto study = open(folder.study());
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{size + 4096, size + 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    for (int i = 0; i < 10000; ++i) try {
        addRun(study, "filler " + std::to_string(i), i);
      } catch (const RuntimeFailure&) {
        // An edit still works or fails as a whole; the study is read as ever.
        return Recordset(study, runsQuery).recordCount() > 1 ? 0 : 1;
      }
    return 2;
  });
  EXPECT_EQ(statusOf(writer), 0);
  const auto study = std::make_shared<Database>(folder.study(), studyLayout(), Database::Check::full);
  EXPECT_EQ(textOf(Recordset(study, runsQuery).value("wndvel")), "1");
}

TEST(Durability, aReadOnlyStudyIsReadAndNotWritten) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  addRun(open(folder.study()), "a", 1);
  const std::string before = test::readFile(folder.study());
  std::filesystem::permissions(folder / "", std::filesystem::perms{0755});
  const pid_t reader = inProcess([&] {
    if (geteuid() == 0 && seteuid(65534) != 0) return 3;
    const auto study = open(folder.study());
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
