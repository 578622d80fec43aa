// The rules of the fields that write to the study when they lose the focus.

#include "scenario/input_rules.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::TestStudy;
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
      {"stblclscbo", "EF", "", "EF", air, "EF|5"},
      {"stblclscbo", "Custom", "", "Custom", air, "Custom|6"},
      {"stblclscbo", "G", "Please select from List", "G", air, "D|6"},
      {"wndveltxt", "4.25", "", "4.25", air, "D|4.25"},
      {"wndveltxt", "", "Input Variable error", "", air, "D|6"},
      {"wndveltxt", "strong", "Input Variable error", "strong", air, "D|6"},
      {"scnrotxtlbl", "", "Please enter scenario text", "", air, "D|6"},
  };
  for (const auto& [field, typed, box, text, query, row] : cases) {
    TestStudy study;
    study.run("start");
    study.record.clear();
    study.run(std::string{"enter "} + field + " \"" + typed + "\"");
    Texts boxes;
    for (const Json& entry : study.record)
      if (entry.contains("box")) boxes.push_back(entry["box"]["text"]);
    EXPECT_EQ(boxes, *box ? Texts{box} : Texts{}) << field << typed;
    EXPECT_EQ(study.text(field), text) << field << typed;
    EXPECT_EQ(study.rows(query), Texts{row}) << field << typed;
    EXPECT_EQ(study.session->desktop().focused() == &study.field(field), *box != 0) << field << typed;
  }
}

TEST(InputRules, showTheirBoxesWithTitleAndIcon) {
  TestStudy study;
  study.run("start\nenter wndveltxt x\nenter wndveltxt 5\nenter htreltxt x\nenter htreltxt 1\nenter roghwndoptcbo x");
  Texts boxes;
  for (const Json& entry : study.record)
    if (entry.contains("box"))
      boxes.push_back(entry["box"]["title"].get<std::string>() + " | " + entry["box"]["icon"].get<std::string>());
  EXPECT_EQ(boxes, (Texts{"QUENDARIS: Error | critical", "QUENDARIS | critical", "QUENDARIS | critical"}));
  EXPECT_EQ(study.record.back(), (Json{{"dropDown", "dspmnfrm.roghwndoptcbo"}}));
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
