#include "engine/isopleth.h"

#include <gtest/gtest.h>

#include "support/test_system.h"

namespace noldarz::test {
namespace {

struct Geometry {
  ScriptedDesktop desktop{[](const RecordEntry&) {}};
  Views views;
  MainView main{views};
  RunState state;
  PlumeModel plume{{.model = state, .query = state, .in = main.in, .level = main.level, .result = main.result}};
  Progress progress{
      {.views = views, .model = state, .sweep = state, .passes = state, .level = main.level, .desktop = desktop}};
  Isopleth isopleth{{.model = state,
                     .passes = state,
                     .sweep = state,
                     .plume = plume,
                     .in = main.in,
                     .level = main.level,
                     .result = main.result,
                     .progress = progress}};
};

TEST(LevelShape, isAnEllipseAndKeepsMarks) {
  const struct {
    const char *width, *length, *distance, *angle, *area;
  } cases[] = {
      {"19.45", "146.19", "76.50", "7.24", "0.223"},  // atan(9.725 / 76.5) * 57.29, pi / 4 * 19.45 * 146.19 / 10000
      {"4.00", "3.00", "10.00", "11.31", "0.00094"},  // below 0.001 Ha: five decimals
      {"4.00", "3.19", "10.00", "11.31", "0.001"},
      {"4.00", "3.00", "0.00", "old", "0.00094"},  // division by zero: the angle stays
      {"N.A.", "N.A.", "N.A.", "old", "old"},
      {"4.00", ">10000", "10.00", "11.31", "old"},
  };
  for (const auto& [width, length, distance, angle, area] : cases) {
    Geometry g;
    g.main.level.setResults(3, "old");
    g.main.level.isopwdth[3].setText(width);
    g.main.level.isoplngt[3].setText(length);
    g.main.level.distmaxisop[3].setText(distance);
    g.isopleth.calcLevelShape(3, Trap::ignoring());
    EXPECT_EQ(g.main.level.isopang[3].text(), angle);
    EXPECT_EQ(g.main.level.isoparea[3].text(), area);
  }
}

TEST(FlammableMass, isChosenByTheCaptions) {
  // Levels 0 to 2: T = 50, 200 and 300 m3, D = 1.318656, 1.305728 and 1.3005568 kg/m3 with v = 1.5; worked out by
  // hand, e.g. case 4: 0.002204634 * ((4.1877 * 200 - 50) * D1 - 4.1877 * 50 * D0) = 1.658.
  const struct {
    std::array<const char*, 3> captions;
    const char* mass;
  } cases[] = {
      {{"UEL:", "TEEL3/IDLH:", "LEL:"}, "5.640"},
      {{"UEL:", "TEEL3/IDLH:", "Lel."}, "5.640"},
      {{"LEL:", "UEL:", "TEEL2:"}, "0.609"},
      {{"Lel", "LEL:", "TEEL2:"}, "0.609"},
      {{"TEET3/IDLH:", "LEL:", "TEEL2:"}, "2.369"},
      {{"UEL:", "LEL:", "Teel/Idlh"}, "2.369"},
      {{"UEL:", "LEL:", "TEEL3/IDLH:"}, "1.658"},
      {{"UEL:", "Lel.", "TEEL3/IDLH:"}, "1.658"},
      {{"UEL:", "Lel", "TEEL3/IDLH:"}, "0"},
      {{"Conc. 0", "Conc. 1", "TEEL3/IDLH:"}, "0"},
      {{"TEEL3/IDLH:", "uel:", "TEEL2:"}, "0"},
  };
  for (const auto& [captions, mass] : cases) {
    Geometry g;
    g.main.in.vapordnstytxt.setText("1.5");
    const char* const levels[3][3] = {{"40", "10", "40000"}, {"80", "20", "20000"}, {"100", "24", "12000"}};
    for (int i = 0; i < 3; ++i) {
      g.main.level.conclbl[i].setCaption(captions.at(static_cast<std::size_t>(i)));
      g.main.level.isoplngt[i].setText(levels[i][0]);
      g.main.level.isopwdth[i].setText(levels[i][1]);
      g.main.level.constn[i].setText(levels[i][2]);
    }
    g.isopleth.calcFlammableMass();
    EXPECT_EQ(g.main.result.expmass.text(), mass) << captions[0] << ' ' << captions[1] << ' ' << captions[2];
  }
}

TEST(FlammableMass, needsTheInputsOfItsOwnCaseOnly) {
  Geometry g;
  g.main.in.vapordnstytxt.setText("1.5");
  g.main.level.setResults(0, "10");
  g.main.level.setResults(1, "20");
  g.main.level.setResults(2, ">10000");
  g.isopleth.calcFlammableMass();
  EXPECT_TRUE(g.main.result.expmass.isNumeric());
  const std::string mass = g.main.result.expmass.text();
  g.main.level.setResults(1, "N.A.");
  EXPECT_THROW(g.isopleth.calcFlammableMass(), RuntimeFailure);
  EXPECT_EQ(g.main.result.expmass.text(), mass);
}

/// A march at 1 m steps, behind a level with a half width of 3 m at 50 m.
struct March : Geometry {
  March(double from, double level) {
    main.in.scnrotypetxt.setText("PLUME");
    main.in.QntyRelstxt.setText("5");
    main.in.molwttxt.setText("29");
    main.in.vapordnstytxt.setText("1");
    main.in.wndveltxt.setText("6");
    main.in.enddisttxt.setText("110");
    state.windAtHeight = 4, state.htRelease = state.htSimul = 1;
    state.distAt = from, state.sweepStep = 1, state.levelConcAt = level;
    state.halfWidthMax = 3, state.maxWidthDist = 50;
  }
};

TEST(MaxWidth, ofACloudThatWidensBeyondAllReachIsThatMark) {
  March g{999000, 1e-9};
  g.main.level.setResults(0, "of another level");
  g.isopleth.findMaxWidth(Trap::ignoring());
  const LevelFields& level = g.main.level;
  for (const auto* field : {&level.isopwdth, &level.distmaxisop, &level.isopang, &level.isoparea})
    EXPECT_EQ((*field)[0].text(), ">1000000");
  EXPECT_EQ(level.endpt[0].text(), "of another level");
}

TEST(MaxWidth, stopsAtTheMaximumDistanceWithTheWidthBefore) {
  March g{100, 1};
  g.isopleth.findMaxWidth(Trap::ignoring());
  EXPECT_EQ(g.state.distAt, 110);
  EXPECT_EQ(g.main.level.isopwdth[0].text(), "6.00");
  EXPECT_EQ(g.main.level.distmaxisop[0].text(), "50.00");
  g.state.widthIdx = 6;
  g.main.level.isopwdth[0].setText("kept");
  g.isopleth.findMaxWidth(Trap::ignoring());
  EXPECT_EQ(g.main.level.isopwdth[0].text(), "kept");
}

}  // namespace
}  // namespace noldarz::test
