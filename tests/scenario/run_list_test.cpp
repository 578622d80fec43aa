// The list of stored runs.

#include "scenario/run_list.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::compute;
using test::TestStudy;
using test::Texts;

TEST(RunList, bringsTheInputsOfASelectedRunBack) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait");
  compute(study);
  study.run("click redosimul\nchoose stblclscbo F\nwait\nenter scnrotxtlbl Night\nwait\nenter wndveltxt 2.5");
  study.field("hudityTxt").setText("60");
  study.run("set QntyRelstxt 9\nset constn(2) 77\nset avalftl -1\nset tempStore 5");
  study.run("choose dspScnorlst_1 Day");
  EXPECT_EQ(study.text("endpt(5)"), "0");  // the click clears the results
  EXPECT_EQ(study.text("constn(2)"), "77");
  study.run("dblclick dspScnorlst_1");
  for (const auto& [name, text] : std::map<std::string, std::string>{{"scnrotxtlbl", "Day"},
                                                                     {"stblclscbo", "D"},
                                                                     {"wndveltxt", "6"},
                                                                     {"hudityTxt", ""},
                                                                     {"QntyRelstxt", "0.3"},
                                                                     {"avalftl", "-14.33"},
                                                                     {"tempStore", "-34"},
                                                                     {"constn(2)", "20"},
                                                                     {"conclbl(0)", "Conc. 0"},
                                                                     {"endpt(5)", "0"}})
    EXPECT_EQ(study.text(name), text) << name;
  EXPECT_EQ(study.state().selectByUserText, 0);
  EXPECT_EQ(study.status(), "Stored: relative humidity 60 %. Run \"Day\" selected. Compute to see its results.");
  EXPECT_EQ(study.rows("SELECT QntyRels FROM scenr1"), Texts{"0.3"});
  EXPECT_EQ(study.rows("SELECT wndvel, Hmudy FROM maimTbl4All"), (Texts{"6|", "2.5|60"}));
}

TEST(RunList, showsEveryRunWithTheLastOnTop) {
  TestStudy study;
  study.run("start");
  constexpr int runs = 300;
  for (int i = 1; i < runs; ++i)
    study.execute(
        "INSERT INTO maimTbl4All (OrgName, refNo, scenariotxt, scenariotxt_ac, ScenarioOptn, scenariotxtUser, "
        "StblClas, scnrotype) VALUES ('HARBOUR WATER WORKS', 'hw-1', 'k" +
        std::to_string(i) + "', 'text " + std::to_string(i) + "', 'dispersion', 'run " + std::to_string(i) +
        "', 'B', 'PUFF')");
  study.execute(
      "INSERT INTO maimTbl4All (OrgName, refNo, scenariotxt, ScenarioOptn, scenariotxtUser) VALUES "
      "('Harbour Water Works', 'HW-1', 'fire', 'Fire', 'of another module')");
  study.run("close\nstart");
  const auto& entries = study.field("dspScnorlst_1").entries();
  ASSERT_EQ(entries.size(), std::size_t{runs});
  EXPECT_EQ(entries.front(), "run 299");
  EXPECT_EQ(entries.back(), "Torn transfer hose");
  EXPECT_EQ(study.state().scnrListLast, 5 * (runs - 1));
  study.run("choose dspScnorlst_1 \"run 250\"\ndblclick dspScnorlst_1");
  EXPECT_EQ(study.text("scnrotxt") + "|" + study.text("scnrotypetxt") + "|" + study.text("stblclscbo"),
            "text 250|PUFF|B");
  EXPECT_EQ(study.state().scnrText, "text 250");
  EXPECT_EQ(study.rows("SELECT scenariotxt, scnrotype FROM scenr1"), Texts{"text 250|PUFF"});
}

TEST(RunList, bringsTheProbitChoiceOfARunWithItsFields) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\nchoose stblclscbo F\nwait\nenter scnrotxtlbl Night\nwait");
  study.execute("UPDATE maimTbl4All SET prbtoptn = 0, avalftl = '-1' WHERE scenariotxtUser = 'Night'");
  for (const bool own : {true, false, true}) {
    study.run(std::string{"choose dspScnorlst_1 "} + (own ? "Night" : "Day") + "\ndblclick dspScnorlst_1");
    EXPECT_EQ(study.text("prbtoptn"), own ? "User input" : "Use software default");
    EXPECT_EQ(study.field("avalftl").enabled(), own);
    EXPECT_EQ(study.text("avalftl"), own ? "-1" : "-14.33");
  }
}

TEST(RunList, leavesTheScenarioWhereARunHasNoValue) {
  TestStudy study;
  study.run("start");
  study.execute(
      "INSERT INTO maimTbl4All (OrgName, refNo, scenariotxt, ScenarioOptn) VALUES "
      "('Harbour Water Works', 'HW-1', 'bare', 'Dispersion')");
  study.run("close\nstart\nchoose dspScnorlst_1 #0\ndblclick dspScnorlst_1");
  EXPECT_EQ(study.rows("SELECT scenariotxt, scnrotype, QntyRels FROM scenr1"), Texts{"Torn transfer hose|PLUME|0.3"});
}

TEST(RunList, loadsNothingWithoutASelectedEntry) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\ndblclick dspScnorlst_1");
  EXPECT_EQ(study.state().selectByUserText, 0);
  EXPECT_EQ(study.text("scnrotxt"), "Torn transfer hose");
}

}  // namespace
}  // namespace noldarz
