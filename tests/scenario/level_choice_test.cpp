#include "scenario/level_choice.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

/// A study whose chemical has these limits: UEL, LEL, TEEL3, TEEL2, TEEL1, TEEL0, IDLH, TWA; "" for none.
std::string studyWith(const Texts& limits, bool flammable) {
  const char* columns[] = {"UEL", "LEL", "TEEL3", "TEEL2", "TEEL1", "TEEL0", "IDLH", "TWA"};
  std::string text = exampleStudy(
      "chlorine",
      {{"naturchem = \"Non-Flammable\"", flammable ? "naturchem = \"Flammable\"" : "naturchem = \"Non-Flammable\""},
       {"IDLH = ", "# "},
       {"TWA = ", "# "},
       {"TEEL1 = ", "# "},
       {"TEEL2 = ", "# "},
       {"TEEL3 = ", "# "}});
  std::string lines;
  for (std::size_t i = 0; i < limits.size(); ++i)
    if (!limits[i].empty()) lines += std::string{columns[i]} + " = \"" + limits[i] + "\"\n";
  return text.replace(text.find("actvproj = true"), 0, lines);
}

TEST(LevelChoice, takesTheLimitsOfTheChemicalInDescendingOrder) {
  const Texts yes{"yes", "yes", "yes"};
  const Texts no{"no", "no", "no"};
  const std::string captions = "UEL: LEL: TEEL3/IDLH: TEEL2: TEEL1: TEEL0:";
  const struct {
    Texts limits;
    bool flammable;
    Texts replies;
    const char* levels;
    std::string captions;
    std::size_t questions;
  } cases[] = {
      {{"95000", "21000", "14000", "5500", "1250", "1000", "2100", "9"},
       true,
       yes,
       "95000 21000 14000 5500 1250 1000",
       captions,
       0},
      {{"95000", "21000", "33000", "17000", "5500", "1000", "", ""},
       true,
       yes,
       "95000 33000 21000 17000 5500 1000",
       "UEL: TEEL3/IDLH: LEL: TEEL2: TEEL1: TEEL0:",
       1},
      {{"20000", "10000", "33000", "17000", "5500", "1000", "", ""},
       true,
       yes,
       "33000 20000 17000 10000 5500 1000",
       "TEEL3/IDLH: UEL: TEEL2: LEL: TEEL1: TEEL0:",
       3},
      {{"20000", "10000", "33000", "17000", "5500", "1000", "", ""},
       true,
       no,
       "20000 10000 33000 17000 5500 1000",
       captions,
       1},
      {{"20000", "30000", "25000", "26000", "5500", "1000", "", ""},
       true,
       no,
       "20000 30000 25000 26000 5500 1000",
       captions,
       2},
      // Not flammable: nothing is asked, and a missing TEEL3 or TEEL0 gives way.
      {{"", "", "20", "30", "0.5", "", "10", "0.4"},
       false,
       yes,
       "0 0 20 30 0.5 0.4",
       "Conc. 0 Conc. 1 TEEL3/IDLH: TEEL2: TEEL1: TWA:",
       0},
      {{"", "", "N.A.", "2", "0.5", "0.0", "10", "0.4"},
       false,
       yes,
       "0 0 10 2 0.5 0.0",
       "Conc. 0 Conc. 1 IDLH: TEEL2: TEEL1: TEEL0:",
       0},
      // The IDLH and the TWA as they stand.
      {{"", "", "", "2", "0.5", "", "none", "0.40"},
       false,
       yes,
       "0 0 none 2 0.5 0.40",
       "Conc. 0 Conc. 1 IDLH: TEEL2: TEEL1: TWA:",
       0},
  };
  for (const auto& [limits, flammable, replies, levels, names, questions] : cases) {
    TestStudy study{studyWith(limits, flammable)};
    study.run("start\nset conclbl(3) value 1");
    std::size_t asked = 0;
    study.session->desktop().answerQuestions([&, &answers = replies](const MessageBox& box) {
      EXPECT_EQ(box.text, "Concentrations required in descending order. Wish to reset in order?");
      EXPECT_EQ(box.icon, Icon::critical);
      return answers.at(asked++) == "yes" ? Reply::yes : Reply::no;
    });
    study.run("click getconclvl");
    std::string constn;
    std::string conclbl;
    for (int i = 0; i < levelCount; ++i) {
      const std::string index = "(" + std::to_string(i) + ")";
      constn += (i == 0 ? "" : " ") + study.text("constn" + index);
      conclbl += (i == 0 ? "" : " ") + study.text("conclbl" + index);
    }
    EXPECT_EQ(constn, levels);
    EXPECT_EQ(conclbl, names);
    EXPECT_EQ(asked, questions);
    EXPECT_EQ(study.text("expmass"), flammable ? "0" : "N.A.");
    EXPECT_EQ(study.field("conclbl(3)").value(), 0);
  }
}

TEST(LevelChoice, givesNothingWithoutAStudy) {
  TestSystem system;
  system.setLevels({"6", "5", "4", "3", "2", "1"});
  system.session.runLine("click getconclvl");
  for (const char* level : {"constn(0)", "constn(1)", "constn(3)", "constn(4)"}) EXPECT_EQ(system.text(level), "0");
}

}  // namespace
}  // namespace noldarz::test
