// Studies as texts: what a text may be, that it comes back the same, and that damaged files harm nothing.

#include "cli/study.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>

#include "platform/settings.h"
#include "platform/store/store_failure.h"
#include "support/chance.h"
#include "support/process.h"
#include "support/test_study.h"

namespace noldarz {
namespace {

using test::exampleStudy;
using test::readFile;
using test::TestFolder;
using test::writeFile;

std::string exported(const std::filesystem::path& file) {
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(exportStudy(file, out, errors), ExitStatus::done) << errors.str();
  return out.str();
}

TEST(Study, comesBackTheSame) {
  const std::string odd = R"toml(
[[maimTbl4All]]
OrgName = "Grün & Söhne \"Nord\""
refNo = "a\\b"
scenariotxt = "tab\tline\nend\u0001\u007f"
ScenarioOptn = "Dispersion"
wndvel = 0.1
Hmudy = 1e-300
endptn0 = ">10000"
endptn1 = -0.0
endptn2 = 123456789012345.0
Causes = 7
NumCase = 7.0
CumFar = "7"
SelOptn = 9007199254740993
prbtoptn = false
)toml";
  for (const char* name : {"chlorine", "lpg", "ammonia"}) {
    const TestFolder folder;
    ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy(name) + odd), "");
    const std::string first = exported(folder.study());
    ASSERT_EQ(test::makeStudy(folder / "again.mdb", first), "");
    EXPECT_EQ(exported(folder / "again.mdb"), first);
    for (const char* line : {"endptn0 = \">10000\"",
                             "wndvel = 0.1\n",
                             "Hmudy = 1e-300\n",
                             "Causes = 7\n",
                             "NumCase = 7.0\n",
                             "CumFar = \"7\"\n",
                             "SelOptn = 9007199254740993\n",
                             "actvproj = true\n",
                             "scenariotxt = \"tab\\tline\\nend\\u0001\\u007F\"\n",
                             "endptn2 = 123456789012345\n"})
      EXPECT_NE(first.find(line), std::string::npos) << line;
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(checkStudy(folder.study(), out, errors), ExitStatus::done) << errors.str();
  }
}

TEST(Study, isRefusedWithFileLineAndName) {
  const struct {
    const char* from;
    const char* to;
    const char* fault;
  } cases[] = {
      {"[[scenr1]]", "[[scenr2]]", "39: unknown table \"scenr2\""},
      {"htrel =", "htrl =", "53: unknown column \"htrl\" of table \"Disptbl\""},
      {"htrel = 1 ",
       "htrel = true ",
       "53: column \"htrel\" of table \"Disptbl\" takes a number, or a text that stands in its place"},
      {"htrel = 1 ",
       "htrel = inf ",
       "53: column \"htrel\" of table \"Disptbl\" takes a number, or a text that stands in its place"},
      {"StblCls = \"D\"", "StblCls = 4", "49: column \"StblCls\" of table \"scenr1\" takes a text"},
      {"actvproj = true", "actvproj = 1", "29: column \"actvproj\" of table \"dsptbl-1\" takes true or false"},
      {"qntychem = 1000", "qntychem = [1]", "20: column \"qntychem\" of table \"dsptbl-1\" takes a text or a number"},
      {"actvproj = true",
       "actvproj = false",
       "1: no project is active: one row of table \"dsptbl-1\" needs actvproj = true"},
      {"[[Orgtn]]",
       "[[\"dsptbl-1\"]]\nOrgName = \"B\"\nrefNo = \"2\"\nactvproj = true\n[[Orgtn]]",
       "15: a row of table \"dsptbl-1\" is a second active project: only one has actvproj = true"},
      {"[[Disptbl]]",
       "[[Disptbl]]\nrefNo = \"hw-1\"\n[[Disptbl]]",
       "53: a row of table \"Disptbl\" has the key of another one, \"HW-1\""},
      {"OrgName = \"Harbour Water Works\"      #",
       "baseAng = 0 #",
       "7: a row of table \"Orgtn\" lacks its key \"OrgName\""},
      {"refNo = \"HW-1\"\nhtrel", "htrel", "51: a row of table \"Disptbl\" lacks its key \"refNo\""},
      {"refNo = \"HW-1\"\nhtrel",
       "refNo = \"O'B\"\nhtrel",
       "51: a row of table \"Disptbl\" holds \"O'B\" in column \"refNo\", and it holds a single quote ('), which the "
       "study "
       "does not take"},
      {"scenariotxt = \"Torn transfer hose\"",
       "scenariotxt = \"3' pipe\"",
       "39: a row of table \"scenr1\" holds \"3' pipe\" in column \"scenariotxt\", and it holds a single quote ('), "
       "which "
       "the study does not take"},
      {"[[Disptbl]]", "[Disptbl]", "51: \"Disptbl\" is no list of rows: each begins with [[\"Disptbl\"]]"},
  };
  for (const auto& [from, to, fault] : cases) {
    const TestFolder folder;
    const std::string reported = test::makeStudy(folder.study(), exampleStudy("chlorine", {{from, to}}));
    const std::string where = folder.study().string() + ".toml:";
    EXPECT_TRUE(reported.starts_with(where)) << reported;
    EXPECT_EQ(reported, where + fault + "\n");
    EXPECT_EQ(std::count(reported.begin(), reported.end(), '\n'), 1) << reported;
    EXPECT_TRUE(std::filesystem::is_empty(folder / "data")) << "left behind";
  }
}

TEST(Study, replacesAnotherOnlyByForce) {
  const TestFolder folder;
  const auto source = folder / "lpg.toml";
  writeFile(source, exampleStudy("lpg"));
  ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("chlorine")), "");
  const std::string before = readFile(folder.study());
  std::ostringstream errors;
  EXPECT_EQ(createStudy(folder.study(), source, false, errors), ExitStatus::refused);
  EXPECT_EQ(errors.str(), folder.study().string() + ": there is a study already; --force replaces it\n");
  EXPECT_EQ(readFile(folder.study()), before);

  writeFile(source, "no study");
  EXPECT_EQ(createStudy(folder.study(), source, true, errors), ExitStatus::refused);
  EXPECT_EQ(readFile(folder.study()), before);

  writeFile(source, exampleStudy("lpg"));
  const auto journal = folder.study().string() + "-journal";
  writeFile(journal, "what a killed process left of the old study");
  EXPECT_EQ(createStudy(folder.study(), source, true, errors), ExitStatus::done);
  EXPECT_FALSE(std::filesystem::exists(journal));
  EXPECT_NE(exported(folder.study()).find("Valley Gas Depot"), std::string::npos);
}

TEST(Study, isNotReplacedUnderAProgramThatWrites) {
  const TestFolder folder;
  ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("chlorine")), "");
  int began[2];
  ASSERT_EQ(pipe(began), 0);
  const pid_t writer = test::inProcess([&] {
    const Database study{folder.study(), studyLayout()};
    study.run("BEGIN IMMEDIATE; UPDATE Disptbl SET htrel = 3");
    if (write(began[1], "", 1) != 1) return 1;
    sleep(1);
    study.run("COMMIT");
    try {
      for (int i = 0; i < 500; ++i, usleep(10000)) study.transact([] {});
    } catch (const StoreFailure&) {
      return 0;  // its file is no longer the study
    }
    return 2;
  });
  char byte = 0;
  ASSERT_EQ(read(began[0], &byte, 1), 1);
  EXPECT_EQ(test::makeStudy(folder.study(), exampleStudy("lpg")), "");
  EXPECT_NE(exported(folder.study()).find("Valley Gas Depot"), std::string::npos);
  EXPECT_EQ(test::statusOf(writer), 0);
}

TEST(Study, isNotExportedWhereATextCannotHoldIt) {
  const TestFolder folder;
  for (const auto& [change, what] : std::map<std::string, std::string>{
           {"UPDATE Disptbl SET htrel = 9e999", "Disptbl\" holds no finite number in column \"htrel\""},
           {"UPDATE [dsptbl-1] SET actvproj = 'yes'", "dsptbl-1\" holds \"yes\" in column \"actvproj\""}}) {
    test::makeStudy(folder.study(), exampleStudy("chlorine"));
    test::changeFromOutside(folder.study(), change);
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(exportStudy(folder.study(), out, errors), ExitStatus::refused);
    EXPECT_NE(errors.str().find(folder.study().string() + ": row 1 of table \"" + what), std::string::npos)
        << errors.str();
    EXPECT_EQ(out.str(), "");
  }
}

/// Puts an odd value into some cell, as another program may.
std::string oddChange(Chance& chance) {
  constexpr const char* values[]{"9223372036854775807",
                                 "9223372036854775808.0",
                                 "-1e19",
                                 "1e300",
                                 "-0.0",
                                 "0.1",
                                 "5",
                                 "'5'",
                                 "''",
                                 "NULL",
                                 "'ÄÖ\u202e'",
                                 "char(27, 10, 9, 127, 0x85, 0x202e, 0xe0001)",
                                 "x'00ff'",
                                 "CAST(x'ff' AS TEXT)",
                                 "CAST(x'610062' AS TEXT)",
                                 "'O''Brien'",
                                 "9e999",
                                 "'N.A.'",
                                 "'\"\\'"};
  const Table& table = studyLayout().tables[chance.below(studyLayout().tables.size())];
  return fmt::format("UPDATE \"{}\" SET \"{}\" = {}",
                     table.name,
                     table.columns[chance.below(table.columns.size())].name,
                     values[chance.below(std::size(values))]);
}

TEST(Study, comesBackFromItsExportWheneverItIsSound) {
  const TestFolder folder;
  const std::string rows =
      "\n[[maimTbl4All]]\nOrgName = \"A\"\nrefNo = \"1\"\nscenariotxt = \"a\"\nScenarioOptn = \"x\"\n"
      "[[poplatndnstytbl]]\nrefNo = \"1\"\n";
  Chance chance{5};
  int sound = 0;
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("ammonia") + rows), "");
    std::string changes;
    for (int change = 0; change <= i % 4; ++change) changes += oddChange(chance) + ";";
    test::changeFromOutside(folder.study(), changes);
    std::ostringstream out;
    std::ostringstream errors;
    const bool isSound = checkStudy(folder.study(), out, errors) == ExitStatus::done;
    std::ostringstream text;
    EXPECT_EQ(exportStudy(folder.study(), text, errors) == ExitStatus::done, isSound) << changes << errors.str();
    EXPECT_EQ(text.str().empty(), !isSound) << changes;
    if (!isSound) continue;
    ++sound;
    ASSERT_EQ(test::makeStudy(folder / "again.mdb", text.str()), "") << changes;
    EXPECT_EQ(exported(folder / "again.mdb"), text.str()) << changes;
  }
  EXPECT_GT(sound, 300);
  EXPECT_LT(sound, 900);
}

TEST(Study, isRefusedWhereItsTextNestsTooDeeply) {
  const TestFolder folder;
  std::filesystem::create_directories(folder / "config/noldarz");
  std::string names = "a";
  for (int i = 0; i < 40000; ++i) names += ".a";
  for (const std::string& text : {names + " = 1\n", "a = " + std::string(40000, '['), "[" + names + "]\n"}) {
    const std::string reported = test::makeStudy(folder.study(), text);
    EXPECT_TRUE(reported.ends_with(":1: the text nests too deeply\n")) << reported.substr(0, 200);
    writeFile(folder / "config/noldarz/settings.toml", text);
    EXPECT_EQ(Settings{folder / "config"}.get("a", "a", "a"), std::nullopt);
  }
}

TEST(Study, isCutIntoRowsOutsideOfStringsOnly) {
  const TestFolder folder;
  const std::string head = exampleStudy("lpg");
  const std::string rows = R"toml(
[[scenr1]]
refno = """
[[scenr1]] \""" " '''
"""
[[scenr1]] # [[x]] "
refno = '''
[[scenr1]] ""
'''
[[scenr1]]
refno = 'C:\' # [
[[scenr1]]
)toml";
  EXPECT_EQ(test::makeStudy(folder.study(), head + rows),
            folder.study().string() + ".toml:" + std::to_string(std::count(head.begin(), head.end(), '\n') + 12) +
                ": a row of table \"scenr1\" is empty\n");
}

TEST(Study, leavesNothingBehindWhenItIsKilled) {
  const TestFolder folder;
  const std::string source = folder / "endless.toml";
  ASSERT_EQ(mkfifo(source.c_str(), 0600), 0);
  const pid_t maker = test::inProcess([&] {
    std::ostringstream errors;
    createStudy(folder.study(), source, false, errors);
    return 0;
  });
  const int text = open(source.c_str(), O_WRONLY);  // until it reads
  for (int i = 0; i < 500 && std::filesystem::is_empty(folder / "data"); ++i) usleep(10000);
  EXPECT_FALSE(std::filesystem::is_empty(folder / "data"));
  kill(maker, SIGKILL);
  EXPECT_EQ(test::statusOf(maker), -SIGKILL);
  close(text);
  ASSERT_EQ(test::makeStudy(folder.study(), exampleStudy("lpg")), "");
  for (const auto& file : std::filesystem::directory_iterator{folder / "data"}) EXPECT_EQ(file.path(), folder.study());
}

TEST(Study, isPutWhereALinkLeads) {
  const TestFolder folder;
  const auto target = folder / "documents/study.mdb";
  std::filesystem::create_symlink(target, folder.study());
  writeFile(folder / "lpg.toml", exampleStudy("lpg"));
  std::ostringstream errors;
  EXPECT_EQ(createStudy(folder.study(), folder / "lpg.toml", false, errors), ExitStatus::refused);  // it leads nowhere
  for (const char* state : {"new", "replaced"}) {
    EXPECT_EQ(createStudy(folder.study(), folder / "lpg.toml", true, errors), ExitStatus::done) << errors.str();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.study())) << state;
    EXPECT_NE(exported(target).find("Valley Gas Depot"), std::string::npos);
  }
}

TEST(Study, isCheckedBeforeTheProgramStartsOnIt) {
  const struct {
    const char* statement;
    const char* fault;
  } cases[] = {
      {"UPDATE [dsptbl-1] SET actvproj = 0",
       "no project is active: one row of table \"dsptbl-1\" needs actvproj = true"},
      {"INSERT INTO [dsptbl-1] (OrgName, refNo, actvproj) VALUES ('B', '2', -1)",
       "row 2 of table \"dsptbl-1\" is a second active project: only one has actvproj = true"},
      {"UPDATE poplatndnstytbl SET populatndnsty_8_1 = -4",
       "row 1 of table \"poplatndnstytbl\" holds \"-4\" in column \"populatndnsty_8_1\", which takes persons "
       "per hectare"},
      {"UPDATE poplatndnstytbl SET populatndnsty_1_4 = 'many'",
       "row 1 of table \"poplatndnstytbl\" holds \"many\" in column \"populatndnsty_1_4\", which takes persons "
       "per hectare"},
      {"DELETE FROM scenr1", "no working scenario: table \"scenr1\" has no row"},
      {"UPDATE scenr1 SET scenariotxt = '3'' pipe'",
       "row 1 of table \"scenr1\" holds \"3' pipe\" in column \"scenariotxt\", and it holds a single quote "
       "('), which the "
       "study does not take"},
      {"DROP TRIGGER \"Orgtn key INSERT\"; INSERT INTO Orgtn (OrgName) SELECT OrgName FROM Orgtn",
       "row 2 of table \"Orgtn\" has the key of another one, \"Harbour Water Works\""}};
  for (const auto& [statement, fault] : cases) {
    const TestFolder folder;
    test::makeStudy(folder.study(), exampleStudy("chlorine"));
    test::changeFromOutside(folder.study(), statement);
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(checkStudy(folder.study(), out, errors), ExitStatus::refused);
    EXPECT_EQ(errors.str(), folder.study().string() + ": " + fault + "\n");
  }
}

TEST(Study, isToldWhatARunStillNeeds) {
  for (const auto& [change, lack] : std::map<std::string, std::string>{
           {"UPDATE Disptbl SET terrain = ''", "terrain"},
           {"DELETE FROM Disptbl", "height of release, height of simulation, terrain"}}) {
    const TestFolder folder;
    test::makeStudy(folder.study(), exampleStudy("chlorine"));
    test::changeFromOutside(folder.study(), change);
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(checkStudy(folder.study(), out, errors), ExitStatus::done) << errors.str();
    EXPECT_TRUE(out.str().ends_with(": the active project has no " + lack + ": to be entered before a run\n"))
        << out.str();
  }
}

TEST(Study, damagedFilesAreRefusedInOneLineAndLeftAlone) {
  const TestFolder folder;
  test::makeStudy(folder.study(), exampleStudy("chlorine"));
  const std::string sound = readFile(folder.study());
  Chance chance{7};
  int refused = 0;
  for (int i = 0; i < 400; ++i) {
    const std::string bytes = damaged(sound, chance);
    writeFile(folder.study(), bytes);
    std::ostringstream out;
    std::ostringstream errors;
    const ExitStatus status =
        i % 2 == 0 ? checkStudy(folder.study(), out, errors) : exportStudy(folder.study(), out, errors);
    const std::string line = errors.str();
    EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), status == ExitStatus::done ? 0 : 1) << line;
    EXPECT_EQ(readFile(folder.study()), bytes) << line;
    refused += status == ExitStatus::done ? 0 : 1;
  }
  EXPECT_GT(refused, 100);
}

TEST(Study, theProgramLivesThroughDamagedFiles) {
  test::TestStudy study;
  study.run("start\nclose");
  const std::string sound = readFile(study.folder.study());
  Chance chance{11};
  for (int i = 0; i < 200; ++i) {
    const std::string bytes = damaged(sound, chance);
    writeFile(study.folder.study(), bytes);
    study.open();
    study.run("start");
    const bool opened = study.session->system().mainView().view.loaded();
    EXPECT_TRUE(opened || readFile(study.folder.study()) == bytes);
    study.run("close");
  }
}

TEST(Study, damagedTextsAreRefusedInOneLine) {
  const TestFolder folder;
  const std::string sound = exampleStudy("ammonia");
  Chance chance{3};
  for (int i = 0; i < 400; ++i) {
    std::string text = damaged(sound, chance);
    const std::string reported = test::makeStudy(folder.study(), text);
    EXPECT_LE(std::count(reported.begin(), reported.end(), '\n'), 1) << reported;
    EXPECT_EQ(std::filesystem::exists(folder.study()), reported.empty()) << reported;
    std::filesystem::remove(folder.study());
    EXPECT_TRUE(std::filesystem::is_empty(folder / "data"));
  }
}

}  // namespace
}  // namespace noldarz
