// The rules of the input fields when they are left.

#include "scenario/input_rules.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::TestStudy;
using test::TestSystem;
using test::Texts;

const std::string heights = "SELECT htrel, htsmul, terrain FROM Disptbl";
const std::string air = "SELECT StblClas, wndvel FROM maimTbl4All";

TEST(InputRules, testAFieldWhenItIsLeft) {
  const struct {
    const char* field;
    const char* typed;
    const char* box;   // empty: accepted
    const char* text;  // in the field afterwards
    const std::string& query;
    const char* row;
  } cases[] = {
      {"htreltxt", "0.1", "", "0.1", heights, "0.1|1.5|Level"},
      {"htreltxt", " 12.50 ", "", "12.5", heights, "12.5|1.5|Level"},
      {"htreltxt", "high", "Height of release should be Numeric", "high", heights, "1|1.5|Level"},
      {"htreltxt", "1,5", "Height of release should be Numeric", "1,5", heights, "1|1.5|Level"},
      {"htreltxt", "0.09", "Height of release should be > or = 0.1 m", "1", heights, "1|1.5|Level"},
      {"htsmul", "0", "", "0", heights, "1|0|Level"},
      {"htsmul", "low", "", "1.5", heights, "1|1.5|Level"},
      {"roghwndoptcbo", "Semi-Urban", "", "Semi-Urban", heights, "1|1.5|Semi-Urban"},
      {"roghwndoptcbo", "level", "Please select from List", "level", heights, "1|1.5|Level"},
      {"stblclscbo", "Custom", "", "Custom", air, "Custom|6"},
      {"stblclscbo", "G", "Please select from List", "G", air, "D|6"},
      {"wndveltxt", "4.25", "", "4.25", air, "D|4.25"},
      {"wndveltxt", "", "Input Variable error", "", air, "D|6"},
      {"wndveltxt", "strong", "Input Variable error", "strong", air, "D|6"},
      {"scnrotxtlbl", "", "Please enter scenario text", "", air, "D|6"},
      {"scnrotxtlbl", "O'Brien", "Scenario text should not hold a single quote (')", "O'Brien", air, "D|6"},
  };
  for (const auto& [field, typed, box, text, query, row] : cases) {
    TestStudy study;
    study.run("start");
    study.record.clear();
    study.run(std::string{"enter "} + field + " \"" + typed + "\"");
    EXPECT_EQ(study.record.boxes(), *box ? Texts{box} : Texts{}) << field << typed;
    EXPECT_EQ(study.text(field), text) << field << typed;
    EXPECT_EQ(study.rows(query), Texts{row}) << field << typed;
    EXPECT_EQ(study.session->desktop().focused() == &study.field(field), *box != 0) << field << typed;
  }
}

TEST(InputRules, testWhatIsNotStored) {
  const struct {
    const char* field;
    const char* typed;
    Texts boxes;
    const char* text;
  } cases[] = {
      {"enddisttxt", "50000", {}, "50000"},
      {"enddisttxt", "1000", {}, "1000"},
      {"enddisttxt", "far", {"critical: Variable should be Numeric"}, "far"},
      {"enddisttxt", "1e999", {"critical: Variable should be Numeric"}, "10000"},
      {"enddisttxt", "50000.01", {"critical: Max. Distance for simulation (m) should be < 50000 m"}, "50000"},
      {"enddisttxt", "999.9", {"critical: Min. Distance for simulation (m) should be > 1000 m"}, "1000"},
      {"constn(4)", "0.001", {}, "0.001"},
      {"constn(0)", "", {"critical: ppm should be Numeric"}, ""},
      {"constn(5)", "0", {"critical: ppm should be > 0"}, "1"},
      {"constn(3)", "-2", {"critical: ppm should be > 0"}, "1"},
      {"Givnwnd(2)", "", {"information: Variable error.", "information: Variable required."}, "0"},
      {"Givnwnd(7)", "calm", {"information: Variable error.", "information: Variable required."}, "0"},
      {"Givnwnd(0)", "-1", {"information: Variable required."}, "0"},
      {"Givnwnd(0)", "60", {"critical: 1. Total Wind percentage can not be > 100%"}, "60"},
      {"Givnwnd(0)", "5", {}, "5"},
  };
  TestStudy study;
  for (const auto& [field, typed, boxes, text] : cases) {
    study.run("close\nstart");
    study.record.clear();
    study.run(std::string{"enter "} + field + " \"" + typed + "\"");
    EXPECT_EQ(study.record.boxesWithIcons(), boxes) << field << typed;
    EXPECT_EQ(study.text(field), text) << field << typed;
    const bool kept = !boxes.empty() && boxes[0].find("Total") == std::string::npos;
    EXPECT_EQ(study.session->desktop().focused() == &study.field(field), kept) << field << typed;
  }
}

TEST(InputRules, shareOutTheWind) {
  const struct {
    Texts shares;  // the last ones are 0
    const char* entered;
    const char* calm;
    double total;
    const char* box;
  } cases[] = {
      {{"12.5", "12.5", "12.5", "12.5", "12.5", "12.5", "12.5"}, "12.5", "0.00", 100, ""},
      {{"33.3", "33.3"}, "33.4", "0.00", 100, ""},
      {{"90"}, "10.01", "-0.01", 100.01, "1. Total Wind percentage can not be > 100%"},
      {{}, "0", "100.00", 0.001, "1. No wind in 8 orientation, 100% calm"},
      {{"10", "20"}, "0.25", "69.75", 30.25, ""},
      {{"10", "x"}, "20", "100.00", 0.001, "1. No wind in 8 orientation, 100% calm"},  // no sum was taken yet
  };
  for (const auto& [shares, entered, calm, total, box] : cases) {
    TestSystem system;
    for (std::size_t i = 0; i < shares.size(); ++i) system.main().in.Givnwnd[static_cast<int>(i)].setText(shares[i]);
    system.session.runLine(std::string{"enter Givnwnd(7) "} + entered);
    EXPECT_EQ(system.takeBoxes(), *box ? Texts{box} : Texts{});
    EXPECT_EQ(system.text("calmlbl(0)"), calm);
    EXPECT_EQ(system.state().windTotal, total);
  }
}

TEST(LevelCaptions, areEditedInPlaceAndGoIntoTheRow) {
  TestStudy study;
  study.run("start\ncheck conclbl(3)");
  EXPECT_TRUE(study.field("conctxt1").visible());
  EXPECT_EQ(study.text("conctxt1"), "TEEL2:");
  EXPECT_EQ(study.session->desktop().focused(), &study.field("conctxt1"));
  study.run("set conctxt1 AEGL-2:\nleave conctxt1");
  EXPECT_EQ(study.text("conclbl(3)"), "AEGL-2:");
  EXPECT_EQ(study.field("conclbl(3)").value(), 0);
  EXPECT_FALSE(study.field("conctxt1").visible());
  EXPECT_EQ(study.rows("SELECT constnTxt1, constnTxt4 FROM maimTbl4All"), Texts{"Conc. 0|AEGL-2:"});
}

TEST(LevelCaptions, mayNotBeEmpty) {
  TestStudy study;
  study.run("start\ncheck conclbl(3)\nset conctxt1 \"\"");
  study.record.clear();
  EXPECT_THROW(study.run("focus htsmul"), std::logic_error);  // the focus stays
  EXPECT_EQ(study.record.boxes(), Texts{"Variable required"});
  EXPECT_EQ(study.text("conctxt1"), "TEEL2:");
  EXPECT_EQ(study.text("conclbl(3)"), "TEEL2:");
  EXPECT_EQ(study.session->desktop().focused(), &study.field("conctxt1"));
  study.run("focus htsmul");
  EXPECT_FALSE(study.field("conctxt1").visible());
  study.run("focus conclbl(5)");
  EXPECT_EQ(study.text("conctxt1"), "Conc. 5");
}

TEST(InputRules, sayThatAnOutputIsNotThereYet) {
  TestStudy study;
  study.run("start");
  compute(study);
  study.record.clear();
  study.run("choose prntprv #1");
  EXPECT_EQ(study.status(), "\"Conc Lvls and dist for mixtures\" is not part of this version.");
  EXPECT_EQ(study.record.lines(), Texts{"clipboard "});
  EXPECT_EQ(study.state().distSweep, 0);
  EXPECT_EQ(study.state().levelIdx, 0);
}

TEST(InputRules, takeTheWidthOfTheContours) {
  TestStudy study;
  for (const auto& [entry, width] : std::map<std::string, int>{{"no2", 2}, {"no4", 4}}) {
    study.run("click " + entry);
    EXPECT_EQ(study.state().lineWidth, width);
    EXPECT_EQ(study.state().lineWidthFlag, width == 2);
    EXPECT_EQ(study.field("no2").value() * 2 + study.field("no4").value() * 4, width);
  }
}

TEST(InputRules, tellWhenTheStudyIsHeldByAnotherProgram) {
  TestStudy study;
  study.run("start");
  const Database other{study.folder.study(), studyLayout()};
  other.run("BEGIN IMMEDIATE");
  study.run("enter wndveltxt 4");
  EXPECT_EQ(study.status(), study.folder.study().string() + " is held by another program");
  other.run("ROLLBACK");
  EXPECT_EQ(study.rows(air), Texts{"D|6"});
  study.run("enter wndveltxt 3");
  EXPECT_EQ(study.rows(air), Texts{"D|3"});
}

}  // namespace
}  // namespace noldarz
