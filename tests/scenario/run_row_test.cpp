// Run rows from the store and back to the store, through the script front.

#include "scenario/run_row.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::compute;
using test::exampleStudy;
using test::TestStudy;
using test::Texts;

TEST(RunRow, isFoundAgainWithItsLevels) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl \"Hose, day\"\nwait");
  compute(study);
  EXPECT_EQ(study.status(), "Results stored in run \"Hose, day\".");
  study.run("close\nstart");
  EXPECT_EQ(study.status(), "Run \"Hose, day\" found.");
  for (const auto& [name, text] : std::map<std::string, std::string>{{"scnrotxtlbl", "Hose, day"},
                                                                     {"constn(0)", "1000"},
                                                                     {"constn(4)", "0.5"},
                                                                     {"constn(5)", "0.25"},
                                                                     {"conclbl(0)", "Conc. 0"},
                                                                     {"conclbl(3)", "TEEL2:"},
                                                                     {"endpt(0)", "0"}})
    EXPECT_EQ(study.text(name), text) << name;
  EXPECT_EQ(study.runs(), Texts{"Torn transfer hoseHW-1D|Hose, day|D"});
}

TEST(RunRow, holdsWhatTheFieldsHold) {
  TestStudy study;
  study.run("start");
  compute(study);
  std::string row = "Torn transfer hose|PLUME|0.3|0|0|-14.33|2.3|-5.84|2.3|-34|1000|25|-1";
  EXPECT_EQ(
      study.rows("SELECT scenariotxt_ac, scnrotype, QntyRels, PoolRadiusRrsls, expmass, avalftl, nvalftl, avalinj, "
                 "nvalinj, TemptureTmp, qntystor, pipholradstor, prbtoptn FROM maimTbl4All"),
      Texts{row});
  const auto number = [&](const std::string& name) { return plainText(study.field(name).number()); };
  for (int i = 0; i < levelCount; ++i) {
    const std::string n = std::to_string(i);
    const std::string m = std::to_string(i + 1);
    EXPECT_EQ(
        study.rows("SELECT bgnptn" + n + ", endptn" + n + ", constn" + m + ", constnTxt" + m + " FROM maimTbl4All"),
        Texts{number("bgnpt(" + n + ")") + "|" + number("endpt(" + n + ")") + "|" + number("constn(" + n + ")") + "|" +
              study.text("conclbl(" + n + ")")});
  }
  // Half of 46.47 m and 525.74 m, rounded half away from zero.
  EXPECT_EQ(study.rows("SELECT FtlyYcord, InjYcord, isopAngle FROM maimTbl4All"), Texts{"23.24|262.87|5.86"});
  EXPECT_EQ(study.rows("SELECT expmass FROM scenr1"), Texts{"0"});
}

TEST(RunRow, storesTheFlammableMassAsANumber) {
  TestStudy study{exampleStudy("lpg")};
  study.run("start\nclick comput");
  const char* ppm[] = {"95000", "21000", "14000", "5500", "1250", "1000"};
  for (int i = 0; i < levelCount; ++i) study.run("enter constn(" + std::to_string(i) + ") " + ppm[i]);
  study.run("click comput");
  ASSERT_GT(study.field("expmass").number(), 0);
  const double mass = study.field("expmass").number();
  EXPECT_EQ(study.rows("SELECT expmass FROM maimTbl4All"), Texts{plainText(rounded(mass, 2))});
  EXPECT_EQ(study.rows("SELECT expmass FROM scenr1"), Texts{plainText(mass)});
}

TEST(RunRow, leavesNoStaleFigureWhereTheRunHasNone) {
  TestStudy study;
  study.run("start");
  compute(study);
  // The last level reaches past the maximum distance now, and the user does not extend it.
  study.run("click redosimul\nenter enddisttxt 5000\nanswer no\nclick comput\nanswer no\nanswer no\nclick comput");
  ASSERT_EQ(study.text("endpt(5)"), ">5000");
  ASSERT_FALSE(study.field("isopwdth(5)").isNumeric());
  EXPECT_EQ(study.rows("SELECT endptn5, InjYcord, typeof(endptn4) FROM maimTbl4All"),
            Texts{">5000|" + study.text("isopwdth(5)") + "|real"});
  study.run("close\nstart");
  EXPECT_EQ(study.text("constn(5)"), "0.25");
}

TEST(RunRow, isOneForEachClass) {
  TestStudy study;
  study.run("start\nchoose stblclscbo F\nwait");
  EXPECT_EQ(study.runs(),
            (Texts{"Torn transfer hoseHW-1D|Torn transfer hose|D", "Torn transfer hoseHW-1F|Torn transfer hose|F"}));
  EXPECT_EQ(study.rows("SELECT wndvel FROM maimTbl4All"), (Texts{"6", "3"}));
  study.run("choose stblclscbo D\nwait");
  EXPECT_EQ(study.runs().size(), 2U);
  study.run("enter wndveltxt 4.5");
  EXPECT_EQ(study.rows("SELECT wndvel FROM maimTbl4All"), (Texts{"4.5", "3"}));
  EXPECT_EQ(study.field("dspScnorlst_1").entries(), (Texts{"Torn transfer hose", "Torn transfer hose"}));
}

TEST(RunRow, isRenamedInPlace) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl \"First name\"\nwait\nenter scnrotxtlbl \"Second name\"\nwait");
  EXPECT_EQ(study.runs(), Texts{"Torn transfer hoseHW-1D|Second name|D"});
  EXPECT_EQ(study.field("dspScnorlst_1").entries(), Texts{"Second name"});
  study.run("focus scnrotxtlbl\nleave scnrotxtlbl");  // unchanged: nothing is asked for
  EXPECT_FALSE(study.field("tmr_1").enabled());
  compute(study);
  EXPECT_EQ(study.status(), "Results stored in run \"Second name\".");
}

TEST(RunRow, isNeitherMadeNorChangedWhileTwoRunsHaveTheName) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\nchoose stblclscbo F\nwait\nenter scnrotxtlbl Night\nwait");
  study.run("enter scnrotxtlbl Day\nwait");
  EXPECT_EQ(study.status(), "Stored: run name \"Day\". 2 runs have the name \"Day\"; rename one of them.");
  EXPECT_EQ(study.runs(), (Texts{"Torn transfer hoseHW-1D|Day|D", "Torn transfer hoseHW-1F|Day|F"}));
  compute(study);  // into its own row all the same
  EXPECT_EQ(study.rows("SELECT StblClas, wndvel, constn6 FROM maimTbl4All"), (Texts{"D|6|", "F|3|0.25"}));
  for (const auto& [entry, stabilityClass] : std::map<std::string, std::string>{{"#0", "F"}, {"#1", "D"}}) {
    study.run("choose dspScnorlst_1 " + entry + "\ndblclick dspScnorlst_1");
    EXPECT_EQ(study.text("stblclscbo"), stabilityClass) << entry;
  }
}

TEST(RunRow, ofTheClassBeforeStaysAsItWasWhenTheUserIsQuick) {
  TestStudy study;
  study.run("start\nchoose stblclscbo F\nenter hudityTxt 50");  // no time passes
  EXPECT_EQ(study.rows("SELECT StblClas, wndvel, Hmudy FROM maimTbl4All"), (Texts{"D|6|", "F|3|50"}));
  compute(study);
  EXPECT_EQ(study.rows("SELECT StblClas, wndvel, constn6 FROM maimTbl4All"), (Texts{"D|6|", "F|3|0.25"}));
}

TEST(RunRow, isThatOfTheUsersLastStepWhateverHeDoesNext) {
  const std::string all = "SELECT scenariotxtUser, StblClas, wndvel FROM maimTbl4All ORDER BY rowid";
  const std::string hose = "Torn transfer hose";
  const struct {
    const char* acts;  // no time passes between them
    Texts rows;
    int boxes;
  } cases[] = {
      {"choose stblclscbo F\nenter wndveltxt 2.2", {hose + "|D|6", hose + "|F|2.2"}, 0},
      {"choose stblclscbo F\nfocus wndveltxt\nleave wndveltxt", {hose + "|D|6", hose + "|F|3"}, 0},
      {"enter stblclscbo F\nenter wndveltxt 2.2", {hose + "|D|6", hose + "|F|2.2"}, 0},  // typed whole
      {"enter stblclscbo F\nenter stblclscbo D\nclose", {hose + "|D|6", hose + "|F|3"}, 0},
      {"choose stblclscbo F\nclose", {hose + "|D|6", hose + "|F|3"}, 0},
      {"enter scnrotxtlbl Day\nchoose dspScnorlst_1 #0\ndblclick dspScnorlst_1\nwait", {"Day|D|6"}, 0},
      {"choose stblclscbo F\nenter scnrotxtlbl Night\nchoose dspScnorlst_1 #1\ndblclick dspScnorlst_1\nwait\n"
       "enter wndveltxt 5",
       {hose + "|D|5", "Night|F|3"},
       0},
  };
  for (const auto& [acts, rows, boxes] : cases) {
    TestStudy study;
    study.run("start\n" + std::string{acts});
    EXPECT_EQ(study.rows(all), rows) << acts;
    EXPECT_EQ(study.record.boxes().size(), boxes) << acts;
  }
}

TEST(RunRow, isSettledBeforeAPressAlsoWithoutARow) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\nenter scnrotxtlbl Later\nchoose stblclscbo F");  // no time passes
  compute(study);
  EXPECT_EQ(study.runs(), (Texts{"Torn transfer hoseHW-1D|Later|D", "Torn transfer hoseHW-1F|Torn transfer hose|F"}));
  EXPECT_EQ(study.rows("SELECT constn6 FROM maimTbl4All"), (Texts{"", "0.25"}));
}

TEST(RunRow, takesNamesThatLookLikePartsOfAQuery) {
  TestStudy study;
  for (const char* name : {"Pump group by pass", "a;b--c", "[x] \\\"y\\\" % _", "Größe"}) {
    study.run((study.record.empty() ? "start\n" : "") + ("enter scnrotxtlbl \"" + std::string{name}) + "\"\nwait");
    study.record.push_back(Printed{});
    const std::string typed = study.text("scnrotxtlbl");
    EXPECT_EQ(study.runs(), Texts{"Torn transfer hoseHW-1D|" + typed + "|D"});
    EXPECT_EQ(study.status(), "Stored: run name \"" + typed + "\". Run \"" + typed + "\" found.");
  }
}

TEST(RunRow, takesNoNameWithASingleQuoteAndStaysOnItsRow) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\nenter scnrotxtlbl \"O'Brien\"");
  EXPECT_EQ(study.text("scnrotxtlbl"), "O'Brien");
  EXPECT_NE(study.field("scnrotxtlbl").fault(), "");
  EXPECT_EQ(study.session->desktop().focused(), &study.field("scnrotxtlbl"));
  EXPECT_THROW(study.run("click comput"), std::logic_error);  // it holds the focus, as any refused text
  study.run("enter scnrotxtlbl Night");
  compute(study);
  EXPECT_EQ(study.rows("SELECT scenariotxtUser, endptn5 FROM maimTbl4All"), Texts{"Night|6216.94"});
}

TEST(RunRow, isMissingForAScenarioWithASingleQuote) {
  for (const char* name : {"3' pipe", "3'' pipe"}) {
    TestStudy study;
    std::string escaped;
    for (const char c : std::string{name}) escaped += c == '\'' ? "''" : std::string{c};
    study.execute("UPDATE scenr1 SET scenariotxt = '" + escaped + "'");
    study.run("start");
    EXPECT_EQ(study.status(),
              "The name \"" + std::string{name} + "\" holds a single quote ('), which the study does not take");
    EXPECT_TRUE(study.runs().empty());
    compute(study);  // computes all the same
    EXPECT_EQ(study.text("endpt(5)"), "6216.94");
    EXPECT_EQ(study.status(), "The results are not stored: no current row");
  }
}

TEST(RunRow, givesItsLevelsBackOnceTheyWereComputed) {
  const struct {
    const char* change;
    const char* level;
  } cases[] = {{"endptn3 = endptn3", "20"},
               {"endptn3 = 0", "5"},
               {"bgnptn1 = NULL", "5"},
               {"endptn3 = '>10000'", "20"},
               {"endptn5 = 0", "20"}};
  for (const auto& [change, level] : cases) {
    TestStudy study;
    study.run("start");
    compute(study);
    study.run("close");
    study.execute("UPDATE maimTbl4All SET " + std::string{change});
    study.open();
    study.run("start");
    EXPECT_EQ(study.text("constn(2)"), level) << change;
  }
}

TEST(RunRow, refreshesTheProbitConstantsFromTheRow) {
  TestStudy study;
  study.run("start\nclose");
  study.execute("UPDATE maimTbl4All SET prbtoptn = 0, avalftl = '-1.5', nvalinj = 'odd'");
  study.open();
  study.run("start");
  EXPECT_EQ(study.field("prbtoptn").value(), 0);
  EXPECT_EQ(study.text("prbtoptn"), "User input");
  EXPECT_TRUE(study.field("avalftl").enabled());
  EXPECT_EQ(study.text("avalftl") + " " + study.text("nvalftl") + " " + study.text("nvalinj"), "-1.5 2.3 odd");
}

}  // namespace
}  // namespace noldarz
