#include "cli/run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/record_json.h"
#include "support/test_study.h"

namespace noldarz {
namespace {

/// The block of README.md behind the line that shows the command.
std::string shownInReadme(const std::string& command) {
  std::ifstream readme(NOLDARZ_SOURCE_DIR "/README.md");
  std::string line;
  while (std::getline(readme, line) && line != "    $ " + command) {
  }
  std::string block;
  while (std::getline(readme, line) && (line.empty() || line.starts_with("    ")))
    block += (line.empty() ? line : line.substr(4)) + '\n';
  block.pop_back();  // the empty line behind the block
  return block;
}

struct Printed {
  ExitStatus status;
  std::string out;
  std::string errors;
};

Printed run(const RunRequest& request, const Folders& folders = {"/", "/", "/"}) {
  std::ostringstream out;
  std::ostringstream errors;
  const ExitStatus status = runAndReport(request, NOLDARZ_VERSION, out, errors, folders);
  return {status, out.str(), errors.str()};
}

RunRequest scriptOf(const std::string& lines) {
  RunRequest request;
  request.target = testing::TempDir() + "release.script";
  std::ofstream(request.target) << lines;
  return request;
}

/// A study in a folder of its own, computed by the command.
struct RunStudy {
  explicit RunStudy(const std::string& text = test::exampleStudy("chlorine")) {
    test::makeStudy(folder.study(), text);
    request.target = folder / "start";
  }
  Printed compute() { return run(request, folder.folders()); }
  std::string row(const std::string& columns) const {
    Recordset found{std::make_shared<Database>(folder.study(), studyLayout()),
                    "SELECT " + columns + " FROM maimTbl4All"};
    std::string line;
    for (int i = 0; i < static_cast<int>(found.columns().size()); ++i) line += textOf(found.value(i)) + "|";
    return line;
  }

  test::TestFolder folder;
  RunRequest request;
};

const std::string script =
    "set scnrotypetxt PLUME\nset QntyRelstxt 5\nset molwttxt 29\nset vapordnstytxt 1\n"
    "set wndveltxt 6\n";

TEST(Run, printsWhatTheReadmeShows) {
  std::filesystem::current_path(NOLDARZ_SOURCE_DIR);
  RunRequest request;
  request.target = "examples/chlorine-hose.script";
  const Printed printed = run(request);
  EXPECT_EQ(printed.status, ExitStatus::done);
  EXPECT_EQ(printed.out, shownInReadme("build/release/bin/noldarz-cli run examples/chlorine-hose.script"));
  EXPECT_EQ(printed.errors, "");
}

TEST(Run, scriptPrintsWhatTheReadmeShows) {
  const test::TestStudy study;
  std::string out;
  std::ostringstream errors;
  ScriptSession session{[&](const RecordEntry& entry) { out += jsonLine(entry); }, study.folder.folders()};
  EXPECT_EQ(runScriptFile(session, NOLDARZ_SOURCE_DIR "/examples/study.script", "", errors), ExitStatus::done);
  EXPECT_EQ(out, shownInReadme("build/release/bin/noldarz-cli script --start site/start examples/study.script"));
}

TEST(Run, computesEveryExampleWithoutAMessage) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  for (const auto& example : std::filesystem::directory_iterator(NOLDARZ_SOURCE_DIR "/examples")) {
    if (example.path().extension() != ".script") continue;
    RunRequest request;
    request.target = example.path();
    request.startFolder = folder / "start";
    const Printed printed = run(request, folder.folders());
    EXPECT_EQ(printed.status, ExitStatus::done) << example << printed.errors;
    EXPECT_EQ(printed.out.find("Messages"), std::string::npos) << printed.out;
  }
}

TEST(Run, computesAStudyAndKeepsTheRunSoThatASecondOneGivesTheSameBytes) {
  RunStudy study;
  study.request.levels = "1000,100,,,,0.25";  // the study has the others
  study.request.densities = "10,20,30,40,50";
  study.request.table = true;
  for (const ReportFormat format : {ReportFormat::page, ReportFormat::json, ReportFormat::csv}) {
    study.request.format = format;
    const Printed first = study.compute();
    EXPECT_EQ(first.status, ExitStatus::done) << first.errors;
    const std::string row = study.row("scenariotxtUser, FtlyXcord, InjXcord, endptn2, endptn5, constn5, constnTxt6");
    EXPECT_EQ(row, "Torn transfer hose|0.05|93.45|393.49|6216.94|0.5|TWA:|");
    study.request.levels = "";  // of the run, now
    EXPECT_EQ(study.compute().out, first.out);
    EXPECT_NE(first.out.find("Results stored in run"), std::string::npos);
  }
}

TEST(Run, printsTheTextsOfTheFieldsInEveryFormat) {
  RunStudy study{test::exampleStudy("lpg")};
  study.request.table = true;
  study.request.densities = "40,30,20,10,0";
  study.request.format = ReportFormat::json;
  const Json json = Json::parse(study.compute().out);
  EXPECT_EQ(json["version"], NOLDARZ_VERSION);
  EXPECT_EQ(json["inputs"]["stblclscbo"], "F");
  EXPECT_EQ(json["inputs"]["avalinj"], "-6.0");
  EXPECT_EQ(json["units"]["endpt"], "m");
  // 0.107 Ha of 75.05 % at 40 persons/Ha
  EXPECT_EQ(json["probitTable"][1]["AbsInjtxt"], "3.212");
  ASSERT_EQ(json["isopleths"].size(), 6U);
  EXPECT_EQ(json["isopleths"][1]["conclbl"], "LEL:");
  ASSERT_EQ(json["probitTable"].size(), 20U);
  const std::string mass = json["results"]["expmass"];
  ASSERT_TRUE(isNumeric(mass));
  EXPECT_EQ(mass, Format(mass, "0.000"));

  study.request.format = ReportFormat::csv;
  const std::string csv = study.compute().out;
  std::istringstream lines{csv};
  std::string names;
  std::string texts;
  std::getline(lines, names);
  std::getline(lines, texts);
  EXPECT_TRUE(lines.eof() || lines.peek() == EOF);
  EXPECT_EQ(std::count(names.begin(), names.end(), ','), std::count(texts.begin(), texts.end(), ','));
  EXPECT_NE(texts.find("," + json["isopleths"][5]["endpt"].get<std::string>() + ","), std::string::npos);
  EXPECT_NE(texts.find("\"Results stored in run \"\""), std::string::npos) << texts;
}

TEST(Run, answersQuestionsAsAsked) {
  RunStudy study;
  study.request.levels = "1000,100,20,2,0.5,0.00001";  // the last one never ends
  study.request.answer = Reply::no;
  const Printed no = study.compute();
  EXPECT_EQ(no.status, ExitStatus::done) << no.errors;  // level 2 is complete, so the row is written
  EXPECT_NE(no.out.find("Wish to simulate beyond 10000 m"), std::string::npos);
  EXPECT_NE(no.out.find("Not computed: TWA reaches past 10000 m."), std::string::npos);
  EXPECT_EQ(no.out.find("Wish to simulate beyond 20000 m"), std::string::npos);
  study.request.answer = Reply::yes;
  const Printed yes = study.compute();
  EXPECT_NE(yes.out.find("Wish to simulate beyond 20000 m"), std::string::npos);
  EXPECT_NE(yes.out.find("Wish to simulate beyond 1000000 m"), std::string::npos);  // and ends there
}

TEST(Run, takesTheStoredGrid) {
  RunStudy study;
  study.request.levels = "1000,100,,,,0.25";
  study.request.densities = "";
  study.request.table = true;
  study.request.format = ReportFormat::json;
  const struct {
    std::optional<int> sector;
    const char* told;
    const char* density;
    const char* hurt;  // 2.455 Ha of 100 %
  } cases[] = {{{}, "1", "20", "49.100"}, {3, "3", "5", "12.275"}, {5, "5", "0", "0.000"}};
  for (const auto& [sector, told, density, hurt] : cases) {
    study.request.sector = sector;
    const Json json = Json::parse(study.compute().out);
    EXPECT_EQ(json["population"]["sector"], told);
    EXPECT_EQ(json["population"]["populatndnsty(0)"], density);
    EXPECT_EQ(json["probitTable"][0]["AbsInjtxt"], hurt);
  }
  test::changeFromOutside(study.folder.study(), "UPDATE poplatndnstytbl SET populatndnsty_5_1 = -2");
  EXPECT_EQ(
      study.compute().errors,
      study.request.target + ": no table of fatality and injury: \"-2\" in sector 5 (south), >2 To 4 km is below 0\n");
  test::changeFromOutside(study.folder.study(), "DELETE FROM poplatndnstytbl");
  const Printed none = study.compute();
  EXPECT_EQ(none.status, ExitStatus::failed);
  EXPECT_EQ(none.errors,
            study.request.target +
                ": no table of fatality and injury: the study has no population grid of this reference number\n");
}

TEST(Run, failsBehindTheReportOfWhatIsNoRun) {
  RunStudy study;
  Printed printed = study.compute();  // chlorine is not flammable, so two levels are 0
  EXPECT_EQ(printed.status, ExitStatus::failed);
  EXPECT_EQ(printed.errors, study.request.target + ": the levels were refused; --levels gives others\n");
  EXPECT_NE(printed.out.find("Input Err."), std::string::npos);

  study.request.levels = "1000,100,0.01,0.01,0.01,0.01";  // level 2 reaches past the maximum distance
  printed = study.compute();
  EXPECT_EQ(printed.status, ExitStatus::failed);
  EXPECT_NE(printed.errors.find("the results are not stored: the level TEEL3/IDLH: is not complete"),
            std::string::npos);

  study.request.levels = "1000,100,20,2,0.5,0.25";
  test::changeFromOutside(
      study.folder.study(),
      "CREATE TRIGGER full BEFORE UPDATE OF endptn5 ON maimTbl4All BEGIN SELECT RAISE(ABORT, 'no more'); END");
  printed = study.compute();
  EXPECT_EQ(printed.status, ExitStatus::failed);
  EXPECT_NE(printed.errors.find("The results are not stored: "), std::string::npos) << printed.errors;

  RunRequest late = scriptOf(script +
                             "click comput\nset constn(0) 1000\nset constn(1) 500\nset constn(2) 200\nset "
                             "constn(3) 100\nset constn(4) 50\nset constn(5) 20\nclick comput\nset molwttxt x");
  late.table = true;
  printed = run(late);
  EXPECT_EQ(printed.errors, late.target + ": no table of fatality and injury: the text is no number\n");
  EXPECT_EQ(printed.out.find("Injury  "), std::string::npos);

  printed = run(scriptOf("echo hello"));
  EXPECT_EQ(printed.status, ExitStatus::failed);
  EXPECT_NE(printed.errors.find("no maximum ground concentration or no peak was found"), std::string::npos);
  EXPECT_NE(printed.out.find("Isopleths"), std::string::npos);
}

TEST(Run, refusesWhatItCanNotTakeAndPrintsNothing) {
  RunStudy study;
  const auto refused = [&](const RunRequest& request, const std::string& fault, ExitStatus status) {
    const Printed printed = run(request, study.folder.folders());
    EXPECT_EQ(printed.status, status);
    EXPECT_EQ(printed.out, "");
    EXPECT_EQ(printed.errors, fault + "\n");
  };
  const auto with = [&](auto&& change) {
    RunRequest request = study.request;
    change(request);
    return request;
  };
  const std::string& target = study.request.target;
  refused(with([](auto& r) { r.levels = "1,2"; }), target + ": --levels takes 6 numbers, not 2", ExitStatus::refused);
  refused(with([](auto& r) { r.levels = "1,2,x,,,"; }), target + ": --levels: \"x\" is no number", ExitStatus::refused);
  refused(with([](auto& r) { r.densities = "1,,,,"; }), target + ": --density: \"\" is no number", ExitStatus::refused);
  refused(with([](auto& r) { r.densities = "1,2,3,4,-5"; }),
          target + ": --density: \"-5\" is below 0",
          ExitStatus::refused);
  refused(with([](auto& r) { r.sector = 2; }),
          target + ": --sector goes with --density without numbers",
          ExitStatus::refused);
  refused(with([](auto& r) { r.startFolder = "/"; }), target + ": --start goes with a script", ExitStatus::refused);
  RunRequest scripted = scriptOf("echo hello");
  scripted.densities = "";
  refused(scripted, scripted.target + ": --density takes five numbers for a script", ExitStatus::refused);
  scripted.densities.reset();
  scripted.levels = "6,5,4,3,2,1";
  refused(scripted, scripted.target + ": --levels goes with a study", ExitStatus::refused);
  refused(with([](auto& r) { r.target = "/nowhere"; }), "/nowhere: no such folder or script", ExitStatus::refused);
  std::filesystem::remove(study.folder.study());
  refused(study.request, target + ": " + study.folder.study().string() + " is not there", ExitStatus::failed);
  test::writeFile(study.folder.study(), "no study");
  const Printed damaged = study.compute();
  EXPECT_EQ(damaged.status, ExitStatus::failed);
  EXPECT_EQ(test::readFile(study.folder.study()), "no study");
  const RunRequest bad = scriptOf("set scnrotypetxt PUFF\nclick comput\nshow nothing\nclick comput");  // midway
  refused(bad, bad.target + ":3: no field \"nothing\" in view dspmnfrm", ExitStatus::refused);
}

TEST(Run, takesTheLimitsAsAskedOrByTheUsersSetting) {
  RunStudy study;
  study.request.levels = "1000,100,20,2,0.5,0.25";
  const auto settings = study.folder / "config/noldarz/settings.toml";
  const auto chosenBy = [&] {
    const std::string out = study.compute().out;
    const auto at = out.find("Limits chosen by");
    const std::string line = out.substr(at, out.find('\n', at) - at);
    return line.substr(line.find("  ") + line.substr(line.find("  ")).find_first_not_of(' ')) +
           (out.find("Fatality dist. limit : ") < out.size() ? ", lethal" : "");
  };
  EXPECT_EQ(chosenBy(), "the default");
  std::filesystem::remove_all(settings.parent_path());
  study.request.limits = "lethal";
  EXPECT_EQ(chosenBy(), "--limits, lethal");
  EXPECT_FALSE(std::filesystem::exists(settings)) << "the choice of one run became the user's";
  Settings{study.folder / "config"}.set(limitChoice::application, limitChoice::section, limitChoice::key, "0");
  study.request.limits.reset();
  EXPECT_EQ(chosenBy(), "the user's setting, lethal");
  study.request.limits = "probit";
  EXPECT_EQ(chosenBy(), "--limits");
}

TEST(Run, showsTextsOfAStudyAsWhatTheyAre) {
  const std::string odd = "OrgName = \"=1+1\\n\\nResults stored.\\u001b[2J\\u202e\"";
  RunStudy study{test::exampleStudy(
      "chlorine",
      {{"OrgName = \"Harbour Water Works\"      #", odd + " #"}, {"OrgName = \"Harbour Water Works\"", odd}})};
  study.request.levels = "1000,100,20,2,0.5,0.25";
  const std::string name = "=1+1\\u{000A}\\u{000A}Results stored.\\u{001B}[2J\\u{202E}";
  EXPECT_NE(study.compute().out.find(name), std::string::npos);
  study.request.format = ReportFormat::csv;
  EXPECT_NE(study.compute().out.find(",'" + name + ","), std::string::npos);
  study.request.format = ReportFormat::json;
  EXPECT_NE(study.compute().out.find("=1+1\\n\\nResults stored.\\u001b[2J\\u202E"), std::string::npos);
}

TEST(Run, givesUpWhereAnInputFailsAtEveryStep) {
  const Printed printed =
      run(scriptOf(script + "set enddisttxt 1000000\nclick comput\nset QntyRelstxt x\nset constn(5) 0\nclick comput"));
  EXPECT_EQ(printed.status, ExitStatus::failed);
  EXPECT_TRUE(printed.errors.ends_with("application as an administrator.\" came 100000 times in a row\n"))
      << printed.errors;
  EXPECT_EQ(printed.out, "");
}

TEST(Run, saysARepeatedMessageOnce) {
  const Printed printed = run(
      scriptOf(script + "set enddisttxt 40000\nclick comput\nset constn(0) 100\nset constn(1) 50\nset constn(2) 20\n"
                        "set constn(3) 10\nset constn(4) 3\nset constn(5) 2.5\nclick comput\n"));
  ASSERT_EQ(printed.status, ExitStatus::done);
  const std::string message = "\n  - Can not compute MGC (Maximum Ground Concentration) beyond ";
  const auto first = printed.out.find(message);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(printed.out.find(message, first + 1), std::string::npos);
  EXPECT_NE(printed.out.find(" ppm (4 times)\n", first), std::string::npos) << printed.out;
}

}  // namespace
}  // namespace noldarz
