// The life of the main view, from the study of the start folder to the end.

#include "scenario/start_up.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::exampleStudy;
using test::TestStudy;
using test::Texts;

TEST(StartUp, showsTheProjectAndTheWorkingScenario) {
  TestStudy study{exampleStudy("lpg")};
  study.run("start");
  const std::map<std::string, std::string> shown{{"Orglbltxt", "Valley Gas Depot"},
                                                 {"refnolbl", "VG-3"},
                                                 {"chmnmelbl", ": LPG"},
                                                 {"scnrotxt", "Pool under the loading arm"},
                                                 {"scnrotypetxt", "POOL"},
                                                 {"QntyRelstxt", "5"},
                                                 {"PoolRadiusRrslstxt", "6"},
                                                 {"molwttxt", "44.11"},
                                                 {"vapordnstytxt", "1.52"},
                                                 {"tempStore", "-42.1"},
                                                 {"htreltxt", "1"},
                                                 {"htsmul", "1"},
                                                 {"roghwndoptcbo", "Rural"},
                                                 {"stblclscbo", "F"},
                                                 {"wndveltxt", "3"},
                                                 {"naturchem", "Flammable"},
                                                 {"Givnwnd(7)", "12.5"},
                                                 {"scnrotxtlbl", "Pool under the loading arm"},
                                                 {"avalinj", "-6.0"},
                                                 {"conclbl(0)", "UEL:"},
                                                 {"FatatyDistDsplyLbl", ""},
                                                 {"enddisttxt", "10000"},
                                                 {"statuslbl",
                                                  "Wind set to 3 m/s, usual for class F. Run \"Pool under the loading "
                                                  "arm\" created."}};
  for (const auto& [name, text] : shown) EXPECT_EQ(study.text(name), text) << name;
  EXPECT_EQ(study.field("prntprv").entries(),
            (Texts{"Concentration Levels and distances",
                   "Conc Lvls and dist for mixtures",
                   "Concentration profile",
                   "Plot Hazard Zones"}));
  EXPECT_FALSE(study.field("prntprv").enabled());
  EXPECT_EQ(study.session->system().mainView().view.title(), " NOLDA-RZ : Dispersion Module  ");
  EXPECT_EQ(study.state().dbPath, study.folder.study());
  EXPECT_EQ(study.state().mapScale, 1.0);
  EXPECT_TRUE(study.state().lineWidthFlag);
  EXPECT_EQ(study.state().prbtAInj, -5);
  EXPECT_EQ(std::filesystem::current_path(), study.folder / "programs/bin");
  EXPECT_FALSE(study.field("tmr_1").enabled());
  EXPECT_FALSE(study.field("Tmr_2").enabled());
  EXPECT_EQ(study.session->desktop().focused(), &study.field("scnrotxtlbl"));
  EXPECT_EQ(study.rows("SELECT wndvel, StblClas FROM maimTbl4All"), Texts{"3|F"});
}

TEST(StartUp, takesTheStabilityClassOfTheScenarioIfItIsOne) {
  const struct {
    const char* stored;
    const char* shown;
    const char* wind;
  } cases[] = {{"StblCls = \"EF\"", "EF", "5"},
               {"StblCls = \"Custom\"", "D", "6"},
               {"StblCls = \"a\"", "D", "6"},
               {"", "D", "6"}};
  for (const auto& [stored, shown, wind] : cases) {
    TestStudy study{exampleStudy("chlorine", {{"StblCls = \"D\"", stored}})};
    study.run("start");
    EXPECT_EQ(study.text("stblclscbo"), shown) << stored;
    EXPECT_EQ(study.text("wndveltxt"), wind) << stored;
    EXPECT_EQ(study.rows("SELECT StblClas FROM maimTbl4All"), Texts{shown}) << stored;
  }
}

TEST(StartUp, createsTheRowOfHeightsWhenThereIsNone) {
  TestStudy study{exampleStudy("chlorine", {{"refNo = \"HW-1\"\nhtrel", "refNo = \"other\"\nhtrel"}})};
  study.run("start");
  EXPECT_EQ(study.rows("SELECT * FROM Disptbl WHERE refNo <> 'other'"), Texts{"HW-1|||"});
  EXPECT_EQ(study.text("htreltxt"), "");
  study.run("enter htreltxt 2\nenter htsmul 1.5\nchoose roghwndoptcbo Urban\nleave roghwndoptcbo");
  EXPECT_EQ(study.rows("SELECT * FROM Disptbl WHERE refNo <> 'other'"), Texts{"HW-1|2|1.5|Urban"});
}

TEST(StartUp, opensTheRunThatTheScenarioAsksFor) {
  TestStudy study;
  study.run("start\nenter scnrotxtlbl Day\nwait\nchoose stblclscbo F\nwait\nenter scnrotxtlbl Night\nwait\nclose");
  ASSERT_EQ(study.runs(), (Texts{"Torn transfer hoseHW-1D|Day|D", "Torn transfer hoseHW-1F|Night|F"}));
  const struct {
    const char* asked;
    const char* name;
    const char* stabilityClass;
  } cases[] = {{"' '", "Day", "D"},
               {"NULL", "Day", "D"},
               {"'torn transfer HOSEhw-1f'", "Night", "F"},
               {"'no such run'", "Day", "D"},  // the row of scenario and class stays the run's own
               {"''", "Day", "D"}};
  for (const auto& [asked, name, stabilityClass] : cases) {
    study.execute("UPDATE scenr1 SET scenariotxtTmp = " + std::string{asked});
    study.open();
    study.run("start");
    EXPECT_EQ(study.text("scnrotxtlbl"), name) << asked;
    EXPECT_EQ(study.text("stblclscbo"), stabilityClass) << asked;
    EXPECT_EQ(study.runs().size(), 2U) << asked;
  }
}

TEST(StartUp, endsInTheViewOfTheMissingFilesWhenTheStudyCannotBeOpened) {
  const struct {
    std::string bytes;
    const char* reason;
  } cases[] = {{"", "is empty, no study"},
               {"a text", "is a text, no study"},
               {std::string("\0\1\0\0Standard Jet DB", 19), "is an original Jet database"}};
  for (const auto& [bytes, reason] : cases) {
    TestStudy study;
    test::writeFile(study.folder.study(), bytes);
    study.run("start");
    EXPECT_EQ(study.record.lines(),
              (Texts{"critical: More files required run setup/Installed Files missing", "activate VELKORDA"}));
    View* view = study.session->system().views().front();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->name(), "reqfrm");
    EXPECT_EQ(view->title(), " QUENDARIS : Required files installation");
    EXPECT_NE(view->find("reasonlbl")->text().find(study.folder.study().string() + " " + reason), std::string::npos);
    EXPECT_FALSE(study.session->system().mainView().view.loaded());
    EXPECT_EQ(test::readFile(study.folder.study()), bytes);
    study.run("click reqfrm.runsetp");  // no setup: the view closes without a message
    EXPECT_TRUE(study.session->ended());
  }
}

TEST(StartUp, runsTheSetupAndClosesTheMarker) {
  TestStudy study;
  std::filesystem::remove(study.folder.study());
  const auto setup = study.folder / "programs/ReqFiles/fld1/setup";
  std::filesystem::create_directories(setup.parent_path());
  test::writeFile(setup, "#!/bin/sh\necho \"$PWD $1\" >ran.new && mv ran.new ran\n");
  std::filesystem::permissions(setup, std::filesystem::perms::owner_all);
  for (const bool marked : {false, true}) {
    const auto marker = study.folder / "documents/nldopnd.txt";
    if (marked) test::writeFile(marker, "open since this morning");
    std::filesystem::remove(setup.parent_path() / "ran");
    study.open();
    study.run("start\nclick reqfrm.runsetp");
    EXPECT_TRUE(study.session->ended());
    EXPECT_EQ(std::filesystem::current_path(), study.folder / "programs/bin");
    EXPECT_EQ(test::readFile(marker), marked ? "File closed" : "");
    EXPECT_EQ(std::filesystem::exists(marker), marked);
    for (int i = 0; i < 500 && !std::filesystem::exists(setup.parent_path() / "ran"); ++i) usleep(10000);
    EXPECT_EQ(test::readFile(setup.parent_path() / "ran"),
              setup.parent_path().string() + " " + study.folder.study().string() + "\n");
  }
}

TEST(StartUp, closesAllViewsAndLooksForTheMainModule) {
  for (const char* close : {"close", "click clsfrm1", "click exit"}) {
    TestStudy study;
    study.run("start");
    View* wait = study.session->system().views().find("aniwait1");
    wait->show();
    study.record.clear();
    study.run(close);
    EXPECT_EQ(study.record.lines(), Texts{"activate VELKORDA"}) << close;
    EXPECT_FALSE(wait->loaded());
    EXPECT_TRUE(study.session->ended());
    EXPECT_EQ(study.state().mainWnd, 0U);
    EXPECT_EQ(study.session->system().study(), nullptr);
  }
}

TEST(StartUp, keepsWhatWasTypedWhenTheViewCloses) {
  TestStudy study;
  study.run("start");
  study.field("htsmul").setText("2.5");
  study.field("htreltxt").setText("high");  // no number: stays as it was
  study.run("close");
  EXPECT_EQ(study.rows("SELECT htrel, htsmul FROM Disptbl"), Texts{"1|2.5"});
  study.run("start");
  study.field("htreltxt").setText("0.05");  // refused when it is left, so it is no height here either
  study.run("close");
  EXPECT_EQ(study.rows("SELECT htrel, htsmul FROM Disptbl"), Texts{"1|2.5"});
}

TEST(StartUp, namesTheUpperLevelsOfANonFlammableChemical) {
  TestStudy study;
  study.field("conctxt1").setVisible(true);
  study.run("start");
  EXPECT_EQ(study.text("conclbl(0)") + study.text("conclbl(1)") + study.text("conclbl(2)"),
            "Conc. 0Conc. 1TEEL3/IDLH:");
  EXPECT_EQ(study.text("expmass"), "N.A.");
  EXPECT_FALSE(study.field("conctxt1").visible());
}

TEST(StartUp, needsTheFolderThatItBeganIn) {
  TestStudy study;
  study.run("start\nclose");
  std::filesystem::rename(study.folder / "start", study.folder / "moved");
  try {
    study.run("start");
    ADD_FAILURE();
  } catch (const std::logic_error& error) {
    EXPECT_NE(std::string{error.what()}.find("test:1: " + (study.folder / "start").string() + " is no folder"),
              std::string::npos)
        << error.what();
  }
}

TEST(StartUp, takesTheChoiceOfLimitsFromTheSettings) {
  TestStudy study;
  study.run("start\nsetting noldarz FatltyInjryDistOptnStr FatltyInjryDistOptnStr1");
  EXPECT_TRUE(study.record.printed().ends_with(R"("value":null})"));
  EXPECT_EQ(study.field("MaxFtlyDstOptn").value(), 1);
  EXPECT_EQ(study.text("MaxFtlyDstOptn"), "Computes Fatality and Injury dist. limit using Probit Equation.");
  study.run("uncheck MaxFtlyDstOptn\nclose\nstart\nsetting noldarz FatltyInjryDistOptnStr FatltyInjryDistOptnStr1");
  EXPECT_TRUE(study.record.printed().ends_with(R"("value":"0"})"));
  EXPECT_EQ(study.field("MaxFtlyDstOptn").value(), 0);
  EXPECT_EQ(study.text("MaxFtlyDstOptn"), "Computes Fatality and Injury dist. limit using using lethal concentration.");
}

TEST(StartUp, goesOnWithAStudyWithoutProjectOrScenario) {
  for (const char* statement : {"UPDATE [dsptbl-1] SET actvproj = 0", "DELETE FROM scenr1"}) {
    TestStudy study;
    study.execute(statement);
    study.run("start");
    EXPECT_EQ(study.status(), "The study has no active project with a working scenario") << statement;
    EXPECT_TRUE(study.runs().empty()) << statement;
    EXPECT_EQ(study.rows("SELECT refNo FROM Disptbl"), Texts{"HW-1"}) << statement;
  }
}

}  // namespace
}  // namespace noldarz
