// Studies that come from a stranger: opening one touches no other file, runs nothing of theirs, does not hang, and
// tells what it refuses.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/store/any_case.h"
#include "platform/store/store_failure.h"
#include "support/test_study.h"

namespace noldarz {
namespace {

using test::changeFromOutside;
using test::exampleStudy;
using test::readFile;
using test::TestStudy;
using test::writeFile;

struct Checked {
  ExitStatus status;
  std::string text;  // of both outputs, without the file's name
};

Checked check(const std::filesystem::path& file) {
  std::ostringstream out;
  const ExitStatus status = checkStudy(file, out, out);
  std::string text = out.str();
  for (std::size_t at = 0; (at = text.find(file.string())) != std::string::npos;) text.erase(at, file.string().size());
  return {status, text};
}

std::string bigEndian(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift & 0xffU);
  return bytes;
}

/// A rollback journal without pages that names another journal, which joins it with the changes of other files.
std::string joinedJournal(const std::string& other, std::uint32_t pages) {
  const std::string magic{"\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8};
  constexpr std::uint32_t sector = 512;
  constexpr std::uint32_t page = 4096;
  std::string journal = magic + bigEndian(0) + bigEndian(1) + bigEndian(pages) + bigEndian(sector) + bigEndian(page);
  journal.resize(sector);
  std::uint32_t sum = 0;
  for (const char c : other) sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
  return journal + bigEndian(0x40000000 / page + 1) + other + bigEndian(static_cast<std::uint32_t>(other.size())) +
         bigEndian(sum) + magic;
}

TEST(Stranger, touchesNoFileThroughAJournal) {
  const test::TestFolder folder;
  ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("chlorine")), "");
  const std::string study = readFile(folder.study());
  const std::string side = folder.study().string() + "-journal";
  const auto canary = folder / "documents/letter.txt";
  const auto pages = static_cast<std::uint32_t>(study.size() / 4096);
  const struct {
    const char* name;
    std::function<void()> make;
    const char* fault;
  } cases[] = {
      {"another journal named",
       [&] { writeFile(side, joinedJournal(canary, pages)); },
       " has a journal orgtn.mdb-journal of a change to several files\n"},
      {"a link",
       [&] { std::filesystem::create_symlink(canary, side); },
       " has a side file orgtn.mdb-journal that is no regular file\n"},
      {"a pipe", [&] { mkfifo(side.c_str(), 0600); }, " has a side file orgtn.mdb-journal that is no regular file\n"},
  };
  for (const auto& [name, make, fault] : cases) {
    writeFile(canary, "Dear all");
    make();
    const auto [status, text] = check(folder.study());
    EXPECT_EQ(status, ExitStatus::refused) << name;
    EXPECT_EQ(text, fault) << name;
    EXPECT_EQ(readFile(canary), "Dear all") << name;
    EXPECT_EQ(readFile(folder.study()), study) << name;
    std::filesystem::remove(side);
  }
  EXPECT_EQ(check(folder.study()).status, ExitStatus::done);
}

TEST(Stranger, isToldWhatActsOnOurRowsAndNotWrittenTo) {
  const std::pair<const char*, const char*> cases[]{
      {"CREATE TRIGGER late AFTER UPDATE ON maimTbl4All BEGIN UPDATE scenr1 SET expmass = 1; END",
       "a trigger \"late\""},
      {"CREATE TRIGGER far AFTER INSERT ON Other BEGIN DELETE FROM 'Orgtn'; END", "a trigger \"far\""},
      {"CREATE VIEW seen AS SELECT * FROM scenr1", "a view \"seen\""},
      {"CREATE VIRTUAL TABLE found USING fts5(scenariotxt, content=maimTbl4All)", "a virtual table \"found\""},
      {"CREATE INDEX long ON maimTbl4All (length(scenariotxt))", "an index by an expression \"long\""},
      {"CREATE INDEX some ON maimTbl4All (refNo) WHERE wndvel > 3", "an index by an expression \"some\""},
      {"ALTER TABLE Orgtn ADD COLUMN twice AS (OrgName || OrgName)", "a generated column in table \"Orgtn\""},
      {"DROP TABLE Orgtn; CREATE TABLE Orgtn (OrgName, baseAng, sclenotxt CHECK (sclenotxt > 0))",
       "a check in table \"Orgtn\""},
      {"DROP TABLE Orgtn; CREATE TABLE Orgtn (OrgName UNIQUE ON CONFLICT REPLACE, baseAng, sclenotxt)",
       "a conflict clause in table \"Orgtn\""},
      {"DROP TABLE Orgtn; CREATE TABLE Orgtn (OrgName, baseAng DEFAULT (random()), sclenotxt)",
       "a computed default in table \"Orgtn\""},
      {"CREATE UNIQUE INDEX plain ON maimTbl4All (OrgName COLLATE NOCASE, refNo, \"scenariotxt\" DESC, ScenarioOptn)",
       ""},
      {"CREATE VIEW elsewhere AS SELECT * FROM Other; CREATE TABLE /* CHECK */ Third (x DEFAULT 'CHECK (1)')", ""},
  };
  for (const auto& [statements, actor] : cases) {
    TestStudy study;
    study.execute("CREATE TABLE Other (x)");
    study.execute(statements);
    const bool sound = *actor == '\0';
    const auto [status, text] = check(study.folder.study());
    EXPECT_EQ(status,
              sound || text.find("Orgtn") == std::string::npos || text.find("it holds") != std::string::npos
                  ? (sound ? ExitStatus::done : ExitStatus::refused)
                  : status)
        << text;
    EXPECT_EQ(text.find("it holds " + std::string{actor} + ", and is not written to\n") != std::string::npos, !sound)
        << text;
    study.run("start\nenter htreltxt 7");
    EXPECT_EQ(study.rows("SELECT htrel FROM Disptbl"), test::Texts{sound ? "7" : "1"}) << statements;
    EXPECT_EQ(study.status().find("The study is read only: it holds " + std::string{actor}) != std::string::npos,
              !sound)
        << study.status();
  }
}

TEST(Stranger, isNotWrittenToOnceItHasChangedItsSchema) {
  TestStudy study;
  study.run("start");
  study.execute("CREATE TRIGGER late AFTER UPDATE ON Disptbl BEGIN UPDATE Disptbl SET terrain = 'Sea'; END");
  study.run("enter htreltxt 7");
  EXPECT_EQ(study.rows("SELECT htrel, terrain FROM Disptbl"), test::Texts{"1|Level"});
  EXPECT_NE(study.status().find("it holds a trigger \"late\""), std::string::npos) << study.status();
}

TEST(Stranger, hasTablesOfRowsOrIsNoStudy) {
  const std::pair<const char*, const char*> cases[]{
      {"DROP TABLE scenr1; CREATE VIEW scenr1 AS SELECT 1 AS refno",
       " can't be used: its table scenr1 is no table of rows\n"},
      {"DROP TABLE Orgtn; CREATE TABLE Orgtn (OrgName PRIMARY KEY, baseAng, sclenotxt) WITHOUT ROWID",
       " can't be used: its table Orgtn has no row numbers\n"}};
  for (const auto& [statements, fault] : cases) {
    const test::TestFolder folder;
    ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("chlorine")), "");
    changeFromOutside(folder.study(), statements);
    EXPECT_EQ(check(folder.study()).text, fault);
  }
}

TEST(Stranger, getsNothingDoneByAQuery) {
  TestStudy study;
  study.execute("CREATE VIRTUAL TABLE f USING fts4(x); INSERT INTO f VALUES ('a')");
  study.run("start");
  const std::string before = readFile(study.folder.study());
  for (const char* query : {"SELECT optimize(f) FROM f",
                            "SELECT * FROM f",
                            "SELECT fts3_tokenizer('simple', x'4141414141414141')",
                            "SELECT load_extension('x')",
                            "SELECT randomblob(1000000000)",
                            "SELECT * FROM scenr1 WHERE scenariotxt LIKE printf('%200c', 'x')",
                            "PRAGMA writable_schema = ON",
                            "SELECT * FROM pragma_table_info('scenr1')"})
    EXPECT_THROW(study.run("rows \"" + std::string{query} + "\""), std::logic_error) << query;
  EXPECT_EQ(readFile(study.folder.study()), before);
  study.run("rows \"SELECT upper(OrgName), count(*) FROM Orgtn\"");
  EXPECT_NE(study.record.printed().find(R"([["HARBOUR WATER WORKS",)"), std::string::npos);
}

TEST(Stranger, isGivenUpWhenItComputesForLong) {
  const test::TestFolder folder;
  ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("chlorine")), "");
  const Database study{folder.study(), studyLayout(), Database::Check::none, Connection::Purpose::query};
  study.connection().limitSteps(std::chrono::seconds{0});
  Statement endless{study, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n"};
  try {
    endless.step();
    FAIL() << "came to an end";
  } catch (const StoreFailure& failure) {
    EXPECT_NE(std::string{failure.what()}.find("takes too long"), std::string::npos) << failure.what();
  }
}

TEST(Stranger, keepsItsIndexesSound) {
  TestStudy study;
  study.execute("CREATE UNIQUE INDEX own ON maimTbl4All (scenariotxtUser, scenariotxt)");
  study.run(
      "start\nenter scnrotxtlbl \"ÉCOLE Straße\"\nchoose stblclscbo F\nwait\nenter scnrotxtlbl \"école "
      "STRASSE\"\nwait");
  study.run("close");
  EXPECT_EQ(check(study.folder.study()).status, ExitStatus::done);
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(study.folder.study().c_str(), &handle), SQLITE_OK);
  std::string answer;
  sqlite3_exec(
      handle,
      "PRAGMA integrity_check",
      [](void* text, int, char** cells, char**) { return *static_cast<std::string*>(text) += cells[0], 0; },
      &answer,
      nullptr);
  sqlite3_close(handle);
  EXPECT_EQ(answer, "ok");
}

TEST(Stranger, findsANameInAnyScriptWithoutRegardToCase) {
  TestStudy study{exampleStudy("chlorine",
                               {{"OrgName = \"Harbour Water Works\"      #", "OrgName = \"ÉCOLE\" #"},
                                {"OrgName = \"Harbour Water Works\"", "OrgName = \"école\""}})};
  study.run("start");
  EXPECT_EQ(study.text("chmnmelbl"), ": Chlorine");
  EXPECT_EQ(
      comparingAnyCase("SELECT a FROM t JOIN [u v] ON t.a = [u v].b WHERE ((t.c)='x''y') AND t.d=-1 AND t.e = f(1)"),
      "SELECT a FROM t JOIN [u v] ON t.a = [u v].b COLLATE ANYCASE WHERE ((t.c)='x''y' COLLATE ANYCASE) AND t.d=-1 "
      "AND t.e = f(1)");
}

}  // namespace
}  // namespace noldarz
