// What the view says of figures that are no results, and what it tells of what it does for the user.

#include "scenario/result_standing.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::compute;
using test::exampleStudy;
using test::TestStudy;
using test::Texts;

const std::string levels =
    "enter constn(0) 1000\nenter constn(1) 100\nenter constn(2) 20\nenter constn(3) 2\nenter constn(4) 0.5\n";

TEST(ResultStanding, saysWhyThereAreNoLimits) {
  const struct {
    std::string acts;
    const char* note;
    bool maximum;  // stands
    bool level;
    bool limit;
  } cases[] = {
      {"", "Not computed yet: press Compute.", false, false, false},
      {"click comput", "Not computed yet: set the levels and press again.", true, false, false},
      {"click comput\n" + levels + "enter constn(5) 0.25\nclick comput", "", true, true, true},
      {"click comput\n" + levels + "enter constn(5) 0.00001\nanswer no\nclick comput",
       "Not computed: TEEL0 reaches past 10000 m.",
       true,
       true,
       false},
      {"click comput\n" + levels + "enter constn(5) 1\nclick comput",
       "Not computed: a level was refused.",
       true,
       false,
       false},
      {"enter enddisttxt 1000\nset QntyRelstxt x\nclick comput",
       "Not computed: no maximum concentration was found.",
       false,
       false,
       false},
  };
  const auto stands = [](TestStudy& study, const char* field) {
    return study.field(field).foreColour() != Colour{SystemColour::disabledText};
  };
  for (const auto& [acts, note, maximum, level, limit] : cases) {
    TestStudy study;
    study.run("start\n" + acts);
    EXPECT_EQ(study.text("resultnotelbl"), note);
    EXPECT_EQ(stands(study, "mgctxt"), maximum) << note;
    EXPECT_EQ(stands(study, "endpt(0)"), level) << note;
    EXPECT_EQ(stands(study, "FatatyDistDsplyLbl"), limit) << note;
    EXPECT_TRUE(acts.empty() || study.status().find(note) != std::string::npos) << study.status();
  }
}

TEST(ResultStanding, callsResultsOutOfDateOnceAnInputIsAnotherOne) {
  const std::string stale = "Out of date: press Redo and compute again.";
  TestStudy study;
  study.run("start");
  compute(study);
  for (const char* field : {"enddisttxt", "tempStore", "constn(4)"}) {
    const std::string before = study.text(field);
    study.run("set " + std::string{field} + " 4000");
    EXPECT_EQ(study.text("resultnotelbl"), stale) << field;
    EXPECT_EQ(study.field("endpt(0)").foreColour(), Colour{SystemColour::disabledText});
    study.run("set " + std::string{field} + " " + before);
    EXPECT_EQ(study.text("resultnotelbl"), "") << field;
  }
  study.run("click redosimul");
  EXPECT_EQ(study.text("resultnotelbl"), "Not computed yet: press Compute.");
}

TEST(StatusLine, tellsWhatIsStoredWhatIsSetAndWhatComesNext) {
  const struct {
    const char* act;
    const char* told;
  } cases[] = {
      {"enter htreltxt 2", "Stored: height of release 2 m."},
      {"choose roghwndoptcbo Rural\nleave roghwndoptcbo", "Stored: terrain Rural."},
      {"enter wndveltxt 3.4", "Stored: wind velocity 3.4 m/s."},
      {"choose stblclscbo D\nleave stblclscbo\nwait\nfocus stblclscbo\nleave stblclscbo",
       "Wind set to 6 m/s, usual for class D (was 3.4)."},
      {"enter hudityTxt 45", "Stored: relative humidity 45 %. Stored: probit constants -14.69, 2.24, -5.99, 2.24."},
      {"enter scnrotxtlbl Day\nwait", "Stored: run name \"Day\". Run \"Day\" found."},
      {"click prbtoptn", "Stored: own constants."},
      {"click redosimul", "Results cleared. Change the inputs, then press Compute."},
      {"choose dspScnorlst_1 Day", "Results cleared. A double click brings the inputs of \"Day\" back."},
      {"click getconclvl", "Levels set to the limits of the chemical. Press Compute for the maximum first."},
      {"click comput",
       "Not computed yet: set the levels and press again. Get Concentration brings those of the chemical."},
  };
  TestStudy study;
  study.run("start");
  for (const auto& [act, told] : cases) {
    study.run(act);
    EXPECT_EQ(study.text("statuslbl"), told) << act;
  }
}

TEST(StatusLine, namesWhatAProjectLacksUntilItIsEntered) {
  TestStudy study;
  study.execute("DELETE FROM Disptbl");
  study.run("start");
  EXPECT_TRUE(
      study.text("statuslbl").starts_with("Enter before Compute: height of release, height of simulation, terrain."))
      << study.text("statuslbl");
  study.run("enter htreltxt 1\nenter htsmul 1.5");
  EXPECT_TRUE(study.text("statuslbl").starts_with("Enter before Compute: terrain.")) << study.text("statuslbl");
  study.run("choose roghwndoptcbo Level\nleave roghwndoptcbo");
  EXPECT_EQ(study.text("statuslbl"), "Stored: terrain Level.");
}

TEST(ReleaseLine, tellsTheRelease) {
  for (const auto& [name, line] :
       std::map<std::string, std::string>{{"chlorine", "PLUME, 0.3 kg/s, 70.9 g/mol, -34 °C"},
                                          {"lpg", "POOL, 5 kg/s, pool radius 6 m, 44.1 g/mol, -42.1 °C"}}) {
    TestStudy study{exampleStudy(name)};
    study.run("start");
    EXPECT_EQ(study.text("releaselbl"), line);
  }
  TestStudy study;
  EXPECT_EQ(study.text("releaselbl"), "No release: the study has no working scenario");
  study.run("set scnrotypetxt PUFF\nset QntyRelstxt 20");
  EXPECT_EQ(study.text("releaselbl"), "PUFF, 20 kg, ? g/mol, 30 °C");
}

TEST(RunList, tellsRunsApart) {
  TestStudy study;
  study.run("start");
  compute(study);
  study.run("click redosimul\nchoose stblclscbo F\nenter wndveltxt 2.2");
  const Field& list = study.field("dspScnorlst_1");
  ASSERT_EQ(list.details().size(), 2U);
  EXPECT_EQ(list.details()[0].text, "F, 2.2 m/s");
  EXPECT_EQ(list.details()[0].toolTip, "Not computed yet");
  EXPECT_EQ(list.details()[1].text, "D, 6 m/s");
  EXPECT_NE(list.details()[1].toolTip.find("TEEL3/IDLH: 20 ppm: 393.49 m"), std::string::npos)
      << list.details()[1].toolTip;
  EXPECT_EQ(list.current(), 0);
  study.run("choose dspScnorlst_1 #1\ndblclick dspScnorlst_1");
  EXPECT_EQ(list.current(), 1);
}

}  // namespace
}  // namespace noldarz
