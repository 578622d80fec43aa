#include "scenario/run_reset.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::compute;
using test::TestStudy;
using test::Texts;

TEST(RunReset, clearsTheResultsAndKeepsTheInputs) {
  TestStudy study;
  study.run("start");
  compute(study);
  ASSERT_FALSE(study.field("constn(0)").enabled());
  study.run("click redosimul");
  for (const char* name : {"mgctxt",
                           "distconctxt",
                           "expmass",
                           "constn1",
                           "maxdistconctxt",
                           "tmestbltxt",
                           "bgnpt(0)",
                           "endpt(5)",
                           "isoplngt(2)",
                           "isopwdth(2)",
                           "isopang(2)",
                           "distmaxisop(2)",
                           "isoparea(2)"})
    EXPECT_EQ(study.text(name), "0") << name;
  for (const char* name : {"htreltxt",
                           "stblclscbo",
                           "htsmul",
                           "roghwndoptcbo",
                           "constn(0)",
                           "constn(5)",
                           "comput",
                           "getconclvl",
                           "prbtoptn",
                           "wndveltxt",
                           "hudityTxt"})
    EXPECT_TRUE(study.field(name).enabled()) << name;
  EXPECT_FALSE(study.field("prntprv").enabled());
  EXPECT_FALSE(study.field("avalftl").enabled());
  EXPECT_EQ(study.text("comput"), "&Compute maximum concentration");
  EXPECT_EQ(colourText(study.field("comput").backColour()), "#c0c0c0");
  EXPECT_EQ(study.text("constn(2)"), "20");
  EXPECT_EQ(study.state().mgcDone + study.state().maxConcDone + study.state().waitShown, 0);
  EXPECT_EQ(study.state().concPeak, 0);
  EXPECT_EQ(study.rows("SELECT endptn5 FROM maimTbl4All"), Texts{"6216.94"});

  study.field("prbtoptn").setValue(0);
  study.run("click redosimul");
  EXPECT_TRUE(study.field("nvalinj").enabled());
  EXPECT_EQ(study.text("prbtoptn"), "User input");
}

}  // namespace
}  // namespace noldarz
