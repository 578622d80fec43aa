#include "engine/progress.h"

#include <gtest/gtest.h>

#include "support/test_system.h"

namespace noldarz::test {
namespace {

struct Wait {
  ScriptedDesktop desktop{[](const RecordEntry&) {}};
  Views views;
  MainView main{views};
  RunState state;
  Progress progress{
      {.views = views, .model = state, .sweep = state, .passes = state, .level = main.level, .desktop = desktop}};
  Field& shape = *views.find("aniwait1")->find("plumepic1");
  Field& line = *views.find("aniwait1")->find("waitlbl1");
};

TEST(Progress, growsTheShapeAndThenRenewsTheLine) {
  Wait w;
  w.progress.show();
  EXPECT_EQ(w.line.caption(), "Computing Maximum Ground Concentration (MGC)");
  EXPECT_EQ(w.shape.width(), 210);
  w.state.distX = 2500;
  w.state.sweepTo = 10000;
  for (int i = 0; i < 5051 - 210; ++i) w.progress.showProgress();
  EXPECT_EQ(w.shape.width(), 5051);
  EXPECT_EQ(w.line.caption(), "Computing Maximum Ground Concentration (MGC)");
  w.progress.showProgress();
  EXPECT_EQ(w.shape.width(), 210);
  EXPECT_EQ(w.line.caption(), "Computing Maximum Ground Concentration (MGC)25 % complete");

  w.state.mgcDone = 1;
  w.state.widthLevel = 2;
  w.shape.setWidth(5051);
  w.progress.showProgress();
  EXPECT_EQ(w.line.caption(), "Computing distance for concentration : TEEL3/IDLH: - 5 [ 25 % complete ]");
  EXPECT_EQ(w.state.shownLevel, 2);
}

TEST(Progress, failsForASweepThatEndsAtTheSource) {
  Wait w;
  w.shape.setWidth(5051);
  EXPECT_THROW(w.progress.showProgress(), RuntimeFailure);
}

}  // namespace
}  // namespace noldarz::test
