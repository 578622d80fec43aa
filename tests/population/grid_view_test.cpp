// The population view: which sector it opens on, what is typed, chosen and turned there, and what the study then holds.

#include <gtest/gtest.h>

#include <cmath>

#include "support/population_study.h"

namespace noldarz::test {
namespace {

TEST(Population, makesAGridThatHoldsItsReferenceAlone) {
  PopulationStudy study{""};
  EXPECT_EQ(study.rows("SELECT refNo FROM poplatndnstytbl"), Texts{"HW-1"});
  EXPECT_EQ(study.nonEmptyCells(), "");
  EXPECT_EQ(study.bands(), "0 0 0 0 0");
  EXPECT_EQ(study.text("absltftlyfrm.zonenumlbl"), "Population density/Ha. for sector 1");
  EXPECT_EQ(study.text("absltftlyfrm.totlbl(4)"), "0");
  EXPECT_EQ(study.state().popViewOpened, 1);
  // To look at a grid, and to leave its bands as they are, stores nothing.
  for (int i = 0; i < gridBands; ++i) study.run("focus absltftlyfrm.populatndnsty(" + std::to_string(i) + ")");
  study.run("click absltftlyfrm.clsfrm1");
  EXPECT_EQ(study.nonEmptyCells(), "");
}

TEST(Population, opensOnTheSectorThatIsSaved) {
  const struct {
    const char* cells;
    const char* saved;
    int orient, sector;
  } cases[] = {{"populatndnsty_3_2 = 4", "", 2, 0},   // the first with people counts in the state only
               {"populatndnsty_3_2 = 4", "5", 2, 5},  // the setting decides what is shown
               {"", "7", 0, 7},
               {"populatndnsty_4_0 = 4", "8", 3, 3},  // no sector of that number
               {"populatndnsty_4_0 = 4", "up", 3, 3}};
  for (const auto& [cells, saved, orient, sector] : cases) {
    PopulationStudy study{cells, saved};
    EXPECT_EQ(study.state().windOrient, orient) << saved;
    EXPECT_EQ(study.selected(), std::to_string(sector)) << saved;
    EXPECT_EQ(study.text("absltftlyfrm.zonenumlbl"), "Population density/Ha. for sector " + std::to_string(orient + 1));
    study.run("enter absltftlyfrm.populatndnsty(4) 7");
    EXPECT_NE(study.nonEmptyCells().find("populatndnsty_" + std::to_string(sector + 1) + "_4=7"), std::string::npos);
  }
}

TEST(Population, storesWhatIsTyped) {
  PopulationStudy study{""};
  study.run("enter absltftlyfrm.populatndnsty(0) 12.5\nenter absltftlyfrm.populatndnsty(4) 3e2");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=12.5 populatndnsty_1_4=300");
  EXPECT_EQ(study.text("absltftlyfrm.gridcell(4)"), "300");
  EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), "Stored: density 300/Ha in sector 1 (north), >8 To 10 km.");
  EXPECT_EQ(study.state().windOrient, 4);
  study.run("enter absltftlyfrm.gridcell(12) 8\ncheck absltftlyfrm.znePopdnsty(2)");
  EXPECT_EQ(study.bands(), "0 0 8 0 0");
  for (const std::string field : {"absltftlyfrm.populatndnsty(2)", "absltftlyfrm.gridcell(12)"})
    for (const char* text : {"many", "-1", "1,5", "1e999", "\"\""}) {
      study.record.clear();
      study.run("enter " + field + " " + text);
      EXPECT_EQ(study.record.lines(), (Texts{"critical: Enter the value in numeric", "focus " + field})) << text;
      EXPECT_EQ(study.text(field), std::string{text} == "\"\"" ? "" : text);
      EXPECT_EQ(colourText(study.field(field).backColour()), "#ffc0c0");
      EXPECT_EQ(study.cell("populatndnsty_3_2"), "8");
      study.run("enter " + field + " 8");
      EXPECT_NE(colourText(study.field(field).backColour()), "#ffc0c0");
    }
  // A text that was refused and is still there when the view closes goes with it.
  study.run("enter absltftlyfrm.populatndnsty(2) many\nclose absltftlyfrm");
  EXPECT_EQ(study.cell("populatndnsty_3_2"), "8");
  EXPECT_EQ(study.status(), "\"many\" is no number and is not stored");
  study.run("click popdnsty");
  EXPECT_EQ(study.bands(), "0 0 8 0 0");
  EXPECT_NE(colourText(study.field("absltftlyfrm.populatndnsty(2)").backColour()), "#ffc0c0");
}

TEST(Population, marksTheBandThatASettlementClassGoesTo) {
  PopulationStudy study{""};
  study.run("check absltftlyfrm.znePopdnsty(1)\nfocus absltftlyfrm.popdnstycbo");
  const auto green = [&] {
    std::string marked;
    for (int i = 0; i < gridBands; ++i)
      if (colourText(study.field("absltftlyfrm.distlbl(" + std::to_string(i) + ")").backColour()) == "#c0ffc0")
        marked += std::to_string(i);
    return marked;
  };
  EXPECT_EQ(green(), "1");  // no band was left yet: the number of the sector
  study.run("choose absltftlyfrm.popdnstycbo Urban");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_2_1=50");
  study.run("focus absltftlyfrm.populatndnsty(3)\nchoose absltftlyfrm.popdnstycbo \"Sparcely Populated\"");
  EXPECT_EQ(green(), "3");
  EXPECT_EQ(study.field("absltftlyfrm.popdnstycbo").toolTip(), "For option selected : >6 To 8 km.");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_2_1=50 populatndnsty_2_3=2");
  study.run("check absltftlyfrm.znePopdnsty(6)\nchoose absltftlyfrm.popdnstycbo None");  // no band 6: the first
  EXPECT_EQ(green(), "0");
  EXPECT_EQ(study.cell("populatndnsty_7_0"), "0");
  std::string classes;
  for (const auto& entry : study.field("absltftlyfrm.popdnstycbo").entries()) classes += entry + ";";
  EXPECT_EQ(classes, "Mega City;Urban;Suburban;Town;Large Rural;Medium Rural;Small Rural;Sparcely Populated;None;");
}

TEST(Population, selectsASectorByItsBoxAndOnTheDial) {
  PopulationStudy study{"populatndnsty_3_0 = 3\npopulatndnsty_8_0 = 8"};
  const struct {
    const char* lines;
    const char* sector;
    const char* caption;
  } steps[] = {
      {"focus absltftlyfrm.znePopdnsty(2)", "-", "Population density/Ha. for sector 3"},  // come to, not chosen
      {"check absltftlyfrm.znePopdnsty(2)", "2", "Population density/Ha. for sector 3"},
      {"focus absltftlyfrm.popdnstycbo\nfocus absltftlyfrm.znePopdnsty(2)", "2", "Population density/Ha for sector 3"},
      {"uncheck absltftlyfrm.znePopdnsty(2)", "2", "Population density/Ha. for sector 3"},  // one is always chosen
      {"mouse down absltftlyfrm.PopdnstySector 1300 1300", "7", "Population density/Ha. for sector 8"},
      {"mouse down absltftlyfrm.PopdnstySector 100 100", "7", "Population density/Ha. for sector 8"},  // beyond 10 km
      {"mouse down absltftlyfrm.PopdnstySector 2100 2900 right", "7", "Population density/Ha. for sector 8"},
      {"mouse down absltftlyfrm.PopdnstySector 2100 2900", "4", "Population density/Ha. for sector 5"},
  };
  for (const auto& [lines, sector, caption] : steps) {
    study.run(lines);
    EXPECT_EQ(study.selected(), sector) << lines;
    EXPECT_EQ(study.text("absltftlyfrm.zonenumlbl"), caption) << lines;
  }
  EXPECT_EQ(study.state().windOrient, 4);
  study.run("check absltftlyfrm.znePopdnsty(7)\nclick absltftlyfrm.clsfrm1\nclick popdnsty");
  EXPECT_EQ(study.selected(), "7");  // kept for the user
  EXPECT_EQ(study.bands(), "8 0 0 0 0");
  // A text that is refused keeps the focus, and the sector.
  for (const std::string field : {"absltftlyfrm.populatndnsty(0)", "absltftlyfrm.gridcell(3)"}) {
    study.run("enter " + field + " many\nmouse down absltftlyfrm.PopdnstySector 2100 2900");
    EXPECT_EQ(study.selected(), "7");
    EXPECT_EQ(study.text(field), "many");
    study.run("enter " + field + " 8");
  }
}

TEST(Population, turnsTheWindAndKeepsIt) {
  PopulationStudy study{""};
  study.run("slide absltftlyfrm.wndsld1 45");
  EXPECT_EQ(study.text("absltftlyfrm.wnddeg"), "45");
  const Field& arm = study.field("absltftlyfrm.wndarm");
  EXPECT_NEAR(arm.left(), 2100 + 1500 * std::cos(-45 * 0.0175), 1e-9);
  EXPECT_NEAR(arm.top(), 2100 + 1500 * std::sin(-45 * 0.0175), 1e-9);
  const Field& barb = study.field("absltftlyfrm.wndarm_2");
  EXPECT_NEAR(barb.left() + barb.width(), 2100 + 1400 * std::cos(-40 * 0.0175), 1e-9);
  EXPECT_NEAR(study.field("absltftlyfrm.wndlbl").left(), arm.left() - 180, 1e-9);
  const struct {
    const char* lines;
    int wind;
    int width;
    const char* tip;
  } steps[] = {
      {"mouse move absltftlyfrm.PopdnstySector 2800 1400", 45, 6, "Press Left Mouse key to change wind direction."},
      {"mouse down absltftlyfrm.PopdnstySector 2800 1400\nmouse move absltftlyfrm.PopdnstySector 3100 2100", 90, 4, ""},
      {"mouse move absltftlyfrm.PopdnstySector 2100 1000", 360, 4, ""},
      {"mouse move absltftlyfrm.PopdnstySector 1100 1100", 315, 4, ""},
      {"mouse move absltftlyfrm.PopdnstySector -30 1100", 315, 4, ""},  // left of the picture
      {"mouse move absltftlyfrm.PopdnstySector 1100 3100", 225, 4, ""},
      {"mouse up absltftlyfrm.PopdnstySector 0 0\nmouse move absltftlyfrm.PopdnstySector 3100 2100", 225, 4, ""}};
  for (const auto& [lines, wind, width, tip] : steps) {
    study.run(lines);
    EXPECT_EQ(study.field("absltftlyfrm.wndsld1").value(), wind) << lines;
    EXPECT_EQ(arm.value(), width) << lines;
    EXPECT_EQ(study.field("absltftlyfrm.PopdnstySector").toolTip(), tip) << lines;
  }
  EXPECT_EQ(study.selected(), "0");
  study.run("close absltftlyfrm");
  compute(study);
  study.run("choose prntprv \"Plot Hazard Zones\"\nslide zardzone.wndsld1 10\nclick zardzone.clsfrm1\nclick popdnsty");
  EXPECT_EQ(study.field("absltftlyfrm.wndsld1").value(), 10);  // one direction for both views
  EXPECT_EQ(study.state().windDeg, 10);
}

TEST(Population, passesOverAWindThatIsNone) {
  for (const char* wind : {"1e12", "400", "west"}) {
    PopulationStudy study{""};
    study.session->system().settings().set(windSetting::application, windSetting::section, windSetting::key, wind);
    study.run("click absltftlyfrm.clsfrm1\nclick popdnsty\ncheck absltftlyfrm.znePopdnsty(4)");
    EXPECT_EQ(study.field("absltftlyfrm.wndsld1").value(), 0) << wind;
    EXPECT_EQ(study.selected(), "4");
  }
}

TEST(Population, fillsTheNumbersOfTheReport) {
  PopulationStudy study{"populatndnsty_3_0 = 20\npopulatndnsty_3_2 = 1", "2"};
  study.run("click absltftlyfrm.clsfrm1");
  compute(study);
  study.run("click popdnsty\nclick absltftlyfrm.prvrpt1");
  EXPECT_EQ(study.views(), "dspmnfrm");
  EXPECT_EQ(study.text("chldfrm.Prbttxt1(0)"), "10.45");
  EXPECT_EQ(study.text("chldfrm.Prbttxt1(3)"), "2.455");
  EXPECT_EQ(study.text("chldfrm.AbsInjtxt(0)"), "49.100");  // 2.455 Ha * 100 % * 20
  EXPECT_EQ(study.text("chldfrm.Absftltxt(0)"), "0.000");
  EXPECT_EQ(study.field("chldfrm.pageoptn").value(), 1);
  EXPECT_EQ(study.status(), "Fatality No. 0.000 and Injury No. 49.100 with the people of sector 3.");
  study.run("click redosimul\nclick popdnsty\nclick absltftlyfrm.prvrpt1");  // of the results as they are now
  EXPECT_EQ(study.text("chldfrm.AbsInjtxt(0)"), "0");
  EXPECT_EQ(study.status(), "There is no table of fatality and injury yet: compute first.");
}

TEST(Population, makesNoGridWithoutAProject) {
  PopulationStudy study{""};
  study.run("click absltftlyfrm.clsfrm1\nset refnolbl \"\"\nclick popdnsty");
  EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), "There is no active project, and so no grid.");
  EXPECT_FALSE(study.field("absltftlyfrm.populatndnsty(0)").enabled());
  EXPECT_EQ(study.rows("SELECT count(*) FROM poplatndnstytbl"), Texts{"1"});
}

TEST(Population, worksAloneWithoutAStudy) {
  TestSystem system;
  const auto run = [&](const std::string& line) { system.session.runLine(line); };
  for (const char* line : {"click popdnsty",
                           "enter absltftlyfrm.populatndnsty(1) 4",
                           "check absltftlyfrm.znePopdnsty(3)",
                           "enter absltftlyfrm.gridcell(16) 5"})
    run(line);
  View& view = *system.session.system().views().find("absltftlyfrm");
  EXPECT_EQ(view.find("populatndnsty(1)")->text(), "5");
  run("check absltftlyfrm.znePopdnsty(0)");
  EXPECT_EQ(view.find("populatndnsty(1)")->text(), "4");
  EXPECT_EQ(view.find("gridcell(1)")->text(), "4");
  EXPECT_EQ(view.find("statuslbl")->text(), "");
}

}  // namespace
}  // namespace noldarz::test
