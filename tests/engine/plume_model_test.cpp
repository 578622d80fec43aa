#include "engine/plume_model.h"

#include <gtest/gtest.h>

#include "engine/air.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "scenario/main_view.h"

namespace noldarz::test {
namespace {

struct Model {
  Model() {
    main.in.scnrotypetxt.setText("PLUME");
    main.in.QntyRelstxt.setText("5");
    main.in.molwttxt.setText("29");
    main.in.vapordnstytxt.setText("1");
    main.in.wndveltxt.setText("6");
    state.windAtHeight = 4;
    state.htRelease = state.htSimul = 1;
  }
  double conc(double sy, double sz, double T) {
    double result = 0;
    plume.plumeConc(sy, sz, T, result);
    return result;
  }
  Views views;
  MainView main{views};
  ModelState state;
  PointQueryState query;
  PlumeModel plume{{.model = state, .query = query, .in = main.in, .level = main.level, .result = main.result}};
};

TEST(PlumeModel, leavesItsResultsForAnotherReleaseTypeOrClass) {
  Model m;
  m.main.in.scnrotypetxt.setText("Plume");  // compared exactly
  m.main.in.stblclscbo.setText("G");
  m.state.sigmaZBase = 1, m.state.sigmaZ = 2, m.state.sigmaY = 3, m.state.distX = 100, m.state.concGround = 4;
  EXPECT_EQ(m.conc(1, 1, 300), 0);
  m.plume.calcConcGround();
  m.plume.calcSigmaZBase();
  m.plume.calcSigmaY();
  m.main.in.vapordnstytxt.setText("0.5");
  m.plume.calcSigmaZ();
  EXPECT_EQ(m.state.sigmaZBase, 1);
  EXPECT_EQ(m.state.sigmaZ, 2);
  EXPECT_EQ(m.state.sigmaY, 3);
  EXPECT_EQ(m.state.concGround, 4);
  EXPECT_EQ(m.state.windInput, 6);  // refreshed for any class
}

TEST(PlumeModel, failsWithTheNumberOfItsCause) {
  const struct {
    const char* field;
    const char* text;
    double sigma;
    int number;
  } cases[] = {{"molwttxt", "0", 1, 11},
               {"molwttxt", "heavy", 1, 13},
               {"QntyRelstxt", "", 1, 13},
               {"QntyRelstxt", "1e308", 1e-3, 6},
               {"molwttxt", "29", 0, 11}};
  for (const auto& [field, text, sigma, number] : cases) {
    Model m;
    m.main.view.find(field)->setText(text);
    try {
      m.conc(sigma, sigma, 300);
      ADD_FAILURE() << field << ' ' << text;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), number) << field << ' ' << text;
    }
  }
  Model calm;
  calm.state.windAtHeight = 0;
  EXPECT_THROW(calm.conc(1, 1, 300), RuntimeFailure);
  calm.main.in.scnrotypetxt.setText("PUFF");  // the wind does not occur
  EXPECT_NO_THROW(calm.conc(1, 1, 300));
}

TEST(PlumeModel, coefficientsAtBothDistancesStayInStep) {
  Model m;
  for (const std::string_view stabilityClass : stabilityClasses)
    for (const char* density : {"0.6", "1", "1.2", "1.6"})
      for (const double distance : {2.0, 70.0, 368.652, 1000.0}) {
        m.main.in.stblclscbo.setText(stabilityClass);
        m.main.in.vapordnstytxt.setText(density);
        m.state.distX = m.state.distAt = distance;
        m.plume.calcSigmaZBase(), m.plume.calcSigmaZ(), m.plume.calcSigmaY();
        m.plume.calcSigmaYAt(), m.plume.calcSigmaZBaseAt(), m.plume.calcSigmaZAt();
        EXPECT_EQ(m.state.sigmaZBase, m.state.sigmaZBaseAt);
        EXPECT_EQ(m.state.sigmaZ, m.state.sigmaZAt);
        EXPECT_EQ(m.state.sigmaY, m.state.sigmaYAt);
      }
}

TEST(PlumeModel, windIsWorkedOutInTheFirstSweepAndShownAlways) {
  Model m;
  m.state.windInput = 6;
  m.state.windAtHeight = 2.5;
  m.plume.calcWindAtHeight();
  EXPECT_EQ(m.main.result.wndvel.caption(), "2.5");
  m.state.mgcPass = 1;
  m.plume.calcWindAtHeight();
  EXPECT_EQ(m.main.result.wndvel.caption(), "3.99807788681614");
  m.main.in.roghwndoptcbo.setText("Urban");  // what was kept is not used for other inputs
  m.plume.calcWindAtHeight();
  EXPECT_NE(m.main.result.wndvel.caption(), "3.99807788681614");
  m.main.result.wndvel.setCaption("");
  m.plume.calcWindAtHeight();
  EXPECT_NE(m.main.result.wndvel.caption(), "");
}

TEST(PlumeModel, setClassWindKeepsTheWindForCustom) {
  Model m;
  m.main.in.stblclscbo.setText("E");
  m.plume.setClassWind();
  EXPECT_EQ(m.state.classWind, 5);
  m.main.in.stblclscbo.setText("Custom");
  m.plume.setClassWind();
  EXPECT_EQ(m.state.classWind, 5);
}

TEST(PointQuery, givesHalfWidthAndHalfHeight) {
  Model m;
  m.state.distAt = 100;
  m.query.plotLevel = 2;
  m.main.level.constn[2].setText("50");
  m.plume.calcHalfWidthAt();
  // 5 kg/s of M = 29 in class "D" at 100 m with H = z = 1 m and u = 4 m/s, worked out by hand:
  // sigma-y = 0.128 * 100^0.9 = 8.0763, sigma-z = 0.093 * 100^0.85 = 4.6610,
  // C = 8577.07 ppm,
  // sqrt(2 * ln(C / 50)) * sigma-y = 25.9066 m.
  EXPECT_NEAR(m.state.concAt, 8577.072451482074, 1e-6);
  EXPECT_NEAR(m.state.halfWidthAt, 25.9065909365417, 1e-9);
  EXPECT_EQ(m.state.halfWidthMax, m.state.halfWidthAt);
  EXPECT_EQ(m.state.halfWidthAtRounded, rounded(m.state.halfWidthAt, 2));

  const double width = m.state.halfWidthAt;
  m.query.isoElevate = 1;
  m.plume.calcHalfWidthAt();
  EXPECT_NEAR(m.state.halfWidthAt / width, m.state.sigmaZAt / m.state.sigmaYAt, 1e-12);

  m.main.level.constn[2].setText("1e9");  // above the concentration there
  m.plume.calcHalfWidthAt();
  EXPECT_EQ(m.state.halfWidthAt, 0);

  m.query.drawMode = 4;  // the concentration alone: level and widths stay
  m.main.level.constn[2].setText("N.A.");
  m.state.halfWidthAt = 7;
  EXPECT_NO_THROW(m.plume.calcHalfWidthAt());
  EXPECT_EQ(m.state.halfWidthAt, 7);
}

}  // namespace
}  // namespace noldarz::test
