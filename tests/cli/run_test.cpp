#include "cli/run.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace noldarz {
namespace {

TEST(Run, printsTheTextsOfTheFields) {
  for (const char* name : {"chlorine-hose", "lpg-pool", "ammonia-puff"}) {
    const std::string file = std::string{NOLDARZ_SOURCE_DIR} + "/examples/" + name + ".script";
    std::ostringstream out;
    std::ostringstream errors;
    ASSERT_EQ(runAndReport(file, "1.2.3", out, errors), ExitStatus::done);
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(out.str().find("Messages"), std::string::npos) << out.str();

    ScriptSession session{[](const Json&) {}};
    ASSERT_EQ(runScriptFile(session, file, file, errors), ExitStatus::done);
    for (const Field& field : session.system().mainView().view.fields())
      for (const char* prefix : {"constn", "bgnpt", "endpt", "isop", "distmaxisop", "mgctxt", "distconctxt"})
        if (field.name().starts_with(prefix)) {
          EXPECT_NE(out.str().find(" " + field.text()), std::string::npos) << field.name() << ' ' << field.text();
        }
  }
}

TEST(Run, saysARepeatedMessageOnce) {
  const std::string file = testing::TempDir() + "far.script";
  std::ofstream(file) << "set scnrotypetxt PLUME\nset QntyRelstxt 5\nset molwttxt 29\nset vapordnstytxt 1\n"
                         "set wndveltxt 6\nset enddisttxt 40000\nclick comput\nset constn(0) 100\nset constn(1) 50\n"
                         "set constn(2) 20\nset constn(3) 10\nset constn(4) 3\nset constn(5) 2.5\nclick comput\n";
  std::ostringstream out;
  std::ostringstream errors;
  ASSERT_EQ(runAndReport(file, "1", out, errors), ExitStatus::done);
  const std::string message = "\n  - Can not compute MGC (Maximum Ground Concentration) beyond ";
  const auto first = out.str().find(message);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(out.str().find(message, first + 1), std::string::npos);
  EXPECT_NE(out.str().find(" ppm (4 times)\n", first), std::string::npos) << out.str();
}

TEST(Run, reportsALineAtFaultAndPrintsNothing) {
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(runAndReport("/nowhere/a.script", "1", out, errors), ExitStatus::refused);
  EXPECT_EQ(errors.str(), "/nowhere/a.script:0: the file can't be read\n");
  errors.str("");
  EXPECT_EQ(runAndReport("/", "1", out, errors), ExitStatus::refused);
  EXPECT_EQ(errors.str(), "/:0: the file can't be read\n");
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace noldarz
