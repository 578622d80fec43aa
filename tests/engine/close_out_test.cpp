#include "engine/close_out.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

TEST(CloseOut, sharesOutTheWindOfAFinishedRun) {
  const struct {
    const char* each;
    const char* last;
    const char* calm;
  } cases[] = {{"12.5", "12.5", "0.00"},
               {"10", "8.25", "21.75"},
               {"0", "0", "100.00"},
               {"20", "N.A.", "100.00"}};  // the sum is not taken, and nothing is taken off
  for (const auto& [each, last, calm] : cases) {
    TestSystem system;
    system.setRelease();
    for (int i = 0; i < 8; ++i) system.main().in.Givnwnd[i].setText(i < 7 ? each : last);
    system.main().result.calmlbl[0].setCaption("before");
    system.press();
    EXPECT_EQ(system.text("calmlbl(0)"), "before");  // no level is complete
    system.setLevels({"1000", "500", "200", "100", "50", "20"});
    system.press();
    EXPECT_EQ(system.text("calmlbl(0)"), calm);
    EXPECT_EQ(system.text("comput"), "Concentration distances computed.");
  }
}

TEST(CloseOut, showsTheTimeInTheUnitOfItsScale) {
  const struct {
    double seconds, value;
    const char* unit;
  } cases[] = {{0, 0, "s"}, {60, 60, "s"}, {61, 61.0 / 60, "min"}, {3600, 60, "min"}, {3601, 3601.0 / 3600, "h"}};
  for (const auto& [seconds, value, unit] : cases) {
    EXPECT_EQ(scaledTime(seconds).value, value);
    EXPECT_EQ(scaledTime(seconds).unit, unit);
  }
}

TEST(CloseOut, dividesTheEndOfTheOutermostLevelByAWindBelowOneMetreASecondToo) {
  for (const char* wind : {"0.5", "4"}) {
    TestSystem system;
    system.setRelease();
    system.set({{"wndveltxt", wind}, {"htreltxt", "10"}});
    system.press();
    const double top = system.field("constn1").number();
    system.setLevels({plainText(top * 0.9),
                      plainText(top * 0.7),
                      plainText(top * 0.5),
                      plainText(top * 0.3),
                      plainText(top * 0.2),
                      plainText(top * 0.1)});
    system.press();
    const double seconds =
        system.field("endpt(5)").number() / strictNumber(wind);  // at 10 m the wind is the one entered
    const double unit = seconds > 3600 ? 3600 : seconds > 60 ? 60 : 1;
    EXPECT_EQ(system.text("tmestbltxt"), Format(seconds / unit, "0.00")) << wind;
    EXPECT_EQ(system.text("tmeunitlbl"), unit == 3600 ? "h" : unit == 60 ? "min" : "s") << wind;
  }
}

TEST(CloseOut, asksForALevelWithANegativeLengthAndStillWritesTheRow) {
  TestStudy study;
  study.run("start\nenter enddisttxt 3000");
  const Colour mine{1, 2, 3};
  study.field("constn(3)").setBackColour(mine);
  study.field("constn(5)").setBackColour(mine);
  compute(study);  // the last but one level ends past 3000 m
  ASSERT_LT(study.field("isoplngt(4)").number(), 0);
  EXPECT_EQ(study.record.boxes().back(), "Reset concentration TEEL1:\nNote:Enter concentration < 0.5");
  EXPECT_EQ(study.field("constn(3)").backColour(), Colour{SystemColour::windowBackground});
  EXPECT_EQ(study.field("constn(4)").backColour(), attentionColour);
  EXPECT_TRUE(study.field("constn(4)").enabled());
  EXPECT_EQ(study.field("constn(5)").backColour(), attentionColour);  // of the question before, and not touched again
  EXPECT_FALSE(study.field("prntprv").enabled());
  EXPECT_FALSE(study.session->system().views().find("aniwait1")->loaded());
  EXPECT_EQ(study.rows("SELECT endptn2 FROM maimTbl4All"), Texts{"393.49"});
}

}  // namespace
}  // namespace noldarz::test
