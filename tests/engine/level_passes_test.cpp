// Refused levels, the question about a level that reaches past the distance, and the press inside the press. Figures
// stand in reference_runs_test.cpp.

#include "engine/level_passes.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "support/test_system.h"

namespace noldarz::test {
namespace {

class LevelPassesTest : public testing::Test {
 protected:
  void SetUp() override {
    system.setRelease();
    system.press();
    system.takeBoxes();
  }
  TestSystem system;
};

TEST_F(LevelPassesTest, refuseLevelsThatAreOutOfOrder) {
  const std::string top = system.text("constn1");
  const struct {
    std::vector<std::string> levels;
    int marked;
  } cases[] = {
      {{"100", "50", "60", "20", "10", "5"}, 2},
      {{"100", "50", "0", "0", "0", "0"}, 3},
      {{top, "50", "40", "30", "20", "10"}, 1},
      {{"-1", "-2", "-3", "-4", "-5", "-6"}, 1},
      {{"100", "50", "40", "30", "20", "25"}, 5},
      {{"99999999", "50", "40", "30", "20", "10"}, 1},
  };
  for (const auto& [levels, marked] : cases) {
    system.session.desktop().forgetFields();  // the focus is in no level of the case before
    system.setLevels(levels);
    system.press();
    const std::string index = "(" + std::to_string(marked) + ")";
    EXPECT_EQ(system.record.lines(),
              (Texts{"critical: 1. Concentration should be >0 and in descending order.\n"
                     "2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ",
                     "focus dspmnfrm.constn" + index}));
    for (const char* name : {"bgnpt", "endpt", "isoplngt", "isopwdth", "isopang", "distmaxisop", "isoparea"})
      EXPECT_EQ(system.text(name + index), "Input Err.");
    for (int i = 0; i < levelCount; ++i) EXPECT_TRUE(system.main().level.constn[i].enabled());
    EXPECT_FALSE(system.session.system().views().find("aniwait1")->loaded());
    system.takeBoxes();
  }
  // The flags stay: with good levels the next press is a second press.
  system.setLevels({"100", "100", "50", "50", "10", "5"});  // equal neighbours pass
  system.press();
  EXPECT_TRUE(system.takeBoxes().empty());
  EXPECT_TRUE(system.field("isoparea(3)").isNumeric());
}

TEST_F(LevelPassesTest, askAboutALevelThatReachesPastTheDistance) {
  system.setLevels({"100", "50", "20", "10", "5", "0.05"});
  system.press();
  Texts questions = system.record.boxes([](const BoxShown& shown) {
    if (shown.box.buttons == Buttons::ok) return std::string{};
    return fmt::format("{}, {}: {}", iconName(shown.box.icon), replyName(shown.box.defaultReply), shown.box.text);
  });
  std::erase(questions, "");
  EXPECT_EQ(questions,
            Texts{"information, no: Concentration in ppm  > 10000 m \nWish to simulate beyond 10000 m \n"
                  " NOTE : You can Reset concentration TEEL0:\nEnter concentration > 0.05"});
  EXPECT_EQ(system.text("isoparea(5)"), ">10000");
  EXPECT_FALSE(system.field("comput").enabled());
  EXPECT_TRUE(system.field("constn(5)").enabled());
  EXPECT_FALSE(system.field("prntprv").enabled());
  EXPECT_EQ(system.state().levelIdx, 5);
}

TEST_F(LevelPassesTest, pressAgainWithALargerDistanceAfterYes) {
  system.setLevels({"100", "50", "20", "10", "5", "3"});
  system.reply("yes");
  system.press();
  EXPECT_EQ(system.text("enddisttxt"), "20000");
  EXPECT_EQ(system.state().endDist, 20000);
  EXPECT_TRUE(system.field("endpt(5)").isNumeric()) << system.text("endpt(5)");
  EXPECT_GT(system.field("endpt(5)").number(), 10000);
  EXPECT_FALSE(system.field("comput").text().empty());
}

TEST_F(LevelPassesTest, replyThatTheQuestionDoesNotOfferIsAnError) {
  system.setLevels({"100", "50", "20", "10", "5", "3"});
  system.reply("ok");
  EXPECT_THROW(system.press(), std::runtime_error);
}

TEST_F(LevelPassesTest, endForACloudWhoseWidthNeverCloses) {
  // Levels 2 to 5 do not end before 10000 m, so each is given an end point by the next; their half widths grow beyond
  // all distances, since the logarithmic forms turn over.
  TestSystem other;
  other.set({{"scnrotypetxt", "PLUME"},
             {"QntyRelstxt", "50"},
             {"molwttxt", "48.1"},
             {"vapordnstytxt", "1.66"},
             {"tempStore", "6"},
             {"htreltxt", "3"},
             {"htsmul", "1.5"},
             {"stblclscbo", "F"},
             {"wndveltxt", "2"}});
  other.press();
  other.setLevels({"200000", "39000", "23", "0.05", "0.02", "0.01"});
  other.press();
  EXPECT_LT(other.state().distAt, farthestDistance + 1);
  EXPECT_FALSE(other.session.system().views().find("aniwait1")->loaded());
}

TEST_F(LevelPassesTest, findWidthsWithoutANumberInTheMaximumDistance) {
  const std::vector<std::string> levels{"1000", "500", "200", "100", "50", "20"};
  system.setLevels(levels);
  system.set({{"enddisttxt", "abc"}});  // the distance of the first press stays in force
  system.press();
  TestSystem other;
  other.setRelease();
  other.press();
  other.setLevels(levels);
  other.press();
  for (const char* name : {"isopwdth(0)", "distmaxisop(5)", "isoparea(5)", "expmass"})
    EXPECT_EQ(system.text(name), other.text(name)) << name;
}

TEST_F(LevelPassesTest, anyTextInALevelEnds) {
  for (const char* text : {"", "N.A.", "abc", "1,5", "1e999", "0.0", "-0", "0.001"}) {
    TestSystem other;
    other.setRelease();
    other.press();
    other.setLevels({"100", "50", "20", "10", "5", text});
    other.press();
    EXPECT_EQ(other.state().firstPass, isNumeric(text) ? 0 : 1) << text;
    EXPECT_FALSE(other.session.system().views().find("aniwait1")->loaded()) << text;
  }
}

TEST_F(LevelPassesTest, aLevelThatIsNoNumberIsRefusedWithOneBox) {
  const struct {
    int level;    // that is no number
    int bad;      // level behind the first pair with it: its fields take the mark, it takes the focus
    int atFault;  // level that tells what is wrong
  } cases[] = {{0, 1, 0}, {1, 1, 1}, {3, 3, 3}, {5, 5, 5}};
  for (const auto& [level, bad, atFault] : cases) {
    TestSystem other;
    other.setRelease();
    other.press();
    std::vector<std::string> levels{"100", "50", "20", "10", "5", "2"};
    levels[static_cast<std::size_t>(level)] = "x";
    other.setLevels(levels);
    other.takeBoxes();
    other.press();
    EXPECT_EQ(other.record.lines().back(), "focus dspmnfrm.constn(" + std::to_string(bad) + ")") << level;
    EXPECT_EQ(other.takeBoxes().size(), 1U) << level;
    const LevelFields& fields = other.main().level;
    for (int i = 0; i < levelCount; ++i) {
      EXPECT_EQ(fields.endpt[i].text(), i == bad ? mark::inputError : mark::nothing) << level;
      EXPECT_EQ(fields.constn[i].fault().empty(), i != atFault) << level;
    }
  }
}

}  // namespace
}  // namespace noldarz::test
