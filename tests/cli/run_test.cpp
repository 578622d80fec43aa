#include "cli/run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "engine/close_out.h"
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

TEST(Run, printsWhatTheReadmeShows) {
  std::filesystem::current_path(NOLDARZ_SOURCE_DIR);
  std::ostringstream out;
  std::ostringstream errors;
  ASSERT_EQ(
      runAndReport("examples/chlorine-hose.script", "examples/chlorine-hose.script", NOLDARZ_VERSION, out, errors),
      ExitStatus::done);
  EXPECT_EQ(out.str(), shownInReadme("build/release/bin/noldarz-cli run examples/chlorine-hose.script"));
  EXPECT_EQ(errors.str(), "");
}

TEST(Run, scriptPrintsWhatTheReadmeShows) {
  const test::TestStudy study;
  std::string out;
  std::ostringstream errors;
  ScriptSession session{[&](const Json& object) { out += jsonLine(object); }, study.folder.folders()};
  EXPECT_EQ(runScriptFile(session, NOLDARZ_SOURCE_DIR "/examples/study.script", "", errors), ExitStatus::done);
  EXPECT_EQ(out, shownInReadme("build/release/bin/noldarz-cli script --start site/start examples/study.script"));
}

TEST(Run, computesEveryExampleWithoutAMessage) {
  const test::TestFolder folder;
  test::makeStudy(folder.study(), test::exampleStudy("chlorine"));
  for (const auto& example : std::filesystem::directory_iterator(NOLDARZ_SOURCE_DIR "/examples")) {
    if (example.path().extension() != ".script") continue;
    std::filesystem::current_path(folder / "start");
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(runAndReport(example.path(), example.path(), "1", out, errors), ExitStatus::done) << example;
    EXPECT_EQ(out.str().find("Messages"), std::string::npos) << out.str();
  }
}

TEST(Run, failsWhenNothingWasComputed) {
  const struct {
    const char* script;
    const char* fault;
  } cases[] = {{"echo hello", "no maximum ground concentration or no peak was found"},
               {"set scnrotypetxt PLUME\nset QntyRelstxt 5\nset molwttxt 29\nset vapordnstytxt 1\nset wndveltxt 6\n"
                "click comput\nset constn(1) 50\nclick comput",
                "the levels were refused"}};
  for (const auto& [script, fault] : cases) {
    const std::string file = testing::TempDir() + "none.script";
    std::ofstream(file) << script;
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(runAndReport(file, file, "1", out, errors), ExitStatus::failed);
    EXPECT_EQ(errors.str(), file + ": " + fault + "\n");
    EXPECT_NE(out.str().find("Isopleths"), std::string::npos);
  }
}

TEST(Run, showsTheTimeInTheUnitOfItsScale) {
  const struct {
    double seconds, value;
    const char* unit;
  } cases[] = {{0, 0, "s"}, {60, 60, "s"}, {61, 61.0 / 60, "min"}, {3600, 60, "min"}, {3601, 3601.0 / 3600, "h"}};
  for (const auto& [seconds, value, unit] : cases) {
    EXPECT_EQ(scaledTime(seconds).value, value);
    EXPECT_EQ(scaledTime(seconds).unit, unit);
  }
}

TEST(Run, saysARepeatedMessageOnce) {
  const std::string file = testing::TempDir() + "far.script";
  std::ofstream(file) << "set scnrotypetxt PLUME\nset QntyRelstxt 5\nset molwttxt 29\nset vapordnstytxt 1\n"
                         "set wndveltxt 6\nset enddisttxt 40000\nclick comput\nset constn(0) 100\nset constn(1) 50\n"
                         "set constn(2) 20\nset constn(3) 10\nset constn(4) 3\nset constn(5) 2.5\nclick comput\n";
  std::ostringstream out;
  std::ostringstream errors;
  ASSERT_EQ(runAndReport(file, file, "1", out, errors), ExitStatus::done);
  const std::string message = "\n  - Can not compute MGC (Maximum Ground Concentration) beyond ";
  const auto first = out.str().find(message);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(out.str().find(message, first + 1), std::string::npos);
  EXPECT_NE(out.str().find(" ppm (4 times)\n", first), std::string::npos) << out.str();
}

TEST(Run, reportsALineAtFaultAndPrintsNothing) {
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(runAndReport("/nowhere/a.script", "/nowhere/a.script", "1", out, errors), ExitStatus::refused);
  EXPECT_EQ(errors.str(), "/nowhere/a.script:0: the file can't be read\n");
  errors.str("");
  EXPECT_EQ(runAndReport("/", "/", "1", out, errors), ExitStatus::refused);
  EXPECT_EQ(errors.str(), "/:0: the file can't be read\n");
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace noldarz
