// The lists that the plots draw, against figures worked out outside the program.

#include <gtest/gtest.h>

#include <cmath>

#include "platform/canvas/replay.h"
#include "plot/isopleth_plot.h"
#include "plot/wind_rose.h"
#include "scenario/main_view.h"
#include "support/test_system.h"

namespace noldarz::test {
namespace {

using Kind = Primitive::Kind;

/// A plume of class "D" that has been computed, and the two views of the plots.
struct Plots {
  Plots() {
    main.in.scnrotypetxt.setText("PLUME");
    main.in.QntyRelstxt.setText("5");
    main.in.molwttxt.setText("29");
    main.in.vapordnstytxt.setText("1");
    main.in.stblclscbo.setText("D");
    main.in.wndveltxt.setText("6");
    main.in.enddisttxt.setText("10000");
    main.project.Orglbltxt.setCaption("Acme");
    engine.windAtHeight = 4;
    engine.htRelease = engine.htSimul = 1;
    state.plotScale = 2;
    for (int i = 0; i < levelCount; ++i) setLevel(i, "1000", "N.A.", "100");
    plot.Drw1.setWidth(11385);
    plot.Drw1.setHeight(8445);
  }
  void setLevel(int i, const char* conc, const char* begin, const char* end) const {
    main.level.constn[i].setText(conc);
    main.level.bgnpt[i].setText(begin);
    main.level.endpt[i].setText(end);
  }
  std::vector<Primitive> of(Kind kind) const {
    std::vector<Primitive> found;
    for (const Primitive& primitive : plot.canvas.drawing().primitives)
      if (primitive.kind == kind) found.push_back(primitive);
    return found;
  }
  Texts printed() const { return plot.canvas.drawing().texts; }

  Views views;
  MainView main{views};
  PlotView drwfrm{views};
  View zoneView{views, "zardzone", ""};
  PlotFields& plot{drwfrm.fields};
  PlotMenu& menu{drwfrm.menu};
  ZoneFields zone{zoneView};
  ProfileProgress progress{views};
  EngineState engine;
  PlotState state;
  RoseState rose;
  RawLimitState raw{.ftlLimitRaw = 21, .injLimitRaw = 41};
  StoredLimitState stored{.ftlLimitStored = 20, .injLimitStored = 40};
  std::int16_t lineWidth = 4;
  Record record;
  ScriptedDesktop desktop{record.taker()};
  Outputs outputs;
  PlumeModel plume{{.model = engine, .query = engine, .in = main.in, .level = main.level, .result = main.result}};
  WindShare share{{.shares = engine, .in = main.in, .result = main.result, .desktop = desktop}};
  IsoplethPlot isopleths{{.plot = state,
                          .query = engine,
                          .model = engine,
                          .rawLimits = raw,
                          .limits = stored,
                          .lineWidth = lineWidth,
                          .in = main.in,
                          .level = main.level,
                          .project = main.project,
                          .zone = zone,
                          .view = plot,
                          .menu = menu,
                          .progress = progress,
                          .plume = plume,
                          .outputs = outputs,
                          .desktop = desktop}};
  WindRose windRose{{.plot = state,
                     .rose = rose,
                     .shares = engine,
                     .in = main.in,
                     .level = main.level,
                     .project = main.project,
                     .zone = zone,
                     .view = plot,
                     .menu = menu,
                     .wind = share,
                     .desktop = desktop}};
};

void expectPoint(double x, double y, const Point& expected) {
  EXPECT_NEAR(x, expected.x, 2e-9);
  EXPECT_NEAR(y, expected.y, 2e-9);
}

TEST(IsoplethPlot, outlinesALevelSampleBySample) {
  const struct {
    const char *conc, *begin, *end;
    Point source;
    int wind;
    bool elevated;
    Point tip;
    std::vector<Point> outline;
  } cases[] = {{"50000",
                "2.5",
                "3",
                {10, 75},
                90,
                false,
                {11.600780989, 74.999525646},   // every 0.1 m: a running sum
                {{11.249999945, 74.999629592},  // stops short of the end
                 {11.454177955, 74.574569069},
                 {11.504030446, 74.559554296},
                 {11.552284054, 74.549539997},
                 {11.600644679, 74.539525666},
                 {11.499999934, 74.999555510},
                 {11.600917299, 75.459525625},
                 {11.552550749, 75.449539957},
                 {11.504291213, 75.439554258},
                 {11.454429832, 75.424569032}}},
               {"1000",
                "150",
                "153.4",
                {100, 140},
                30,
                false,
                {138.276132361, 73.688668454},  // every metre
                {{137.493584154, 75.044390948},
                 {129.146082763, 69.572575764},
                 {129.378567452, 69.129801754},
                 {129.611054114, 68.687024327},
                 {138.343438728, 73.572063810},
                 {146.782671287, 78.944969968},
                 {146.515542856, 79.367748699},
                 {146.248416421, 79.790523972}}},
               {"1000",
                "150",
                "153.4",
                {10, 75},
                90,
                true,
                {86.536948500, 74.977320051},  // half heights
                {{84.999996707, 74.977775491},
                 {85.535635545, 69.342616519},
                 {86.035452985, 69.332468409},
                 {86.535272772, 69.322320299},
                 {86.699996633, 74.977271735},
                 {86.238701102, 80.622408677},
                 {85.738911108, 80.617556778},
                 {85.239089215, 80.607704888}}}};
  for (const auto& c : cases) {
    Plots p;
    p.setLevel(2, c.conc, c.begin, c.end);
    p.zone.zonsplot[2].setValue(1);
    p.zone.wndsld1.setValue(c.wind);
    p.state.sourceX = c.source.x;
    p.state.sourceY = c.source.y;
    p.engine.isoElevate = c.elevated ? 1 : 0;
    ASSERT_TRUE(p.isopleths.drawIsopleths());
    const auto lines = p.of(Kind::Line);
    ASSERT_EQ(lines.size(), c.outline.size() + 1);
    for (std::size_t i = 0; i < c.outline.size(); ++i) {
      expectPoint(lines[i].x2, lines[i].y2, c.outline[i]);
      EXPECT_EQ(lines[i].colour, Colour(0, 0, 255));
    }
    expectPoint(lines.back().x2, lines.back().y2, c.outline.front());
    expectPoint(p.of(Kind::PSet).front().x1, p.of(Kind::PSet).front().y1, {c.tip.x, c.tip.y - 3.5});
    EXPECT_EQ(p.printed(), Texts{" " + Format(strictNumber(c.end), "0.00") + " m"});
    EXPECT_EQ(p.of(Kind::Circle).size(), c.elevated ? 0U : 1U);
    EXPECT_FALSE(p.progress.view.loaded());
  }
}

TEST(IsoplethPlot, drawsTheLevelsUpwardWithTheirCirclesAndTurnsOfLabels) {
  Plots p;
  const struct {
    const char *begin, *end;
    bool checked;
  } levels[] = {{"0", "10", true},  // no begin: no outline, but its circle
                {"2", "4", true},
                {">10000", "40", true},
                {"2", "60", false},
                {"9", "8", true},  // of no length
                {"2", "5", true}};
  for (int i = 0; i < levelCount; ++i) {
    p.setLevel(i, "100000", levels[i].begin, levels[i].end);
    p.zone.zonsplot[i].setValue(levels[i].checked ? 1 : 0);
  }
  p.zone.PlotFtlyInjryLmt.setValue(1);
  p.state.sourceX = p.state.sourceY = 70;
  ASSERT_TRUE(p.isopleths.drawIsopleths());
  EXPECT_EQ(p.printed(), (Texts{" 5.00 m", " 4.00 m", "Fatality Limit 20.00 m", "Injury Limit 40.00 m"}));
  const auto places = p.of(Kind::PSet);
  ASSERT_EQ(places.size(), 4U);
  EXPECT_NEAR(places[0].y1, 70 - 2.5 - 3.5, 0.2);  // the first above its tip, the second below
  EXPECT_NEAR(places[1].y1, 70 - 2.0 + 0.5, 0.2);
  const double b = -10 * 0.01745;
  expectPoint(places[2].x1, places[2].y1, {70 + 20.0 / 2 * std::sin(b), 70 - 21.0 / 2 * std::cos(b) - 3.5});
  std::vector<double> radii;
  for (const Primitive& circle : p.of(Kind::Circle)) radii.push_back(circle.x2);
  EXPECT_EQ(radii, (std::vector<double>{2.5, 4, 20, 2, 5, 10, 20}));
  EXPECT_EQ(p.of(Kind::Circle).back().colour, Colour(192, 192, 0));
  EXPECT_EQ(p.of(Kind::DrawWidth).back().x1, 4);
}

TEST(IsoplethPlot, endsAtALevelWithoutAnEndPoint) {
  Plots p;
  p.setLevel(5, "100000", "2", "5");
  p.setLevel(1, "100000", "N.A.", "N.A.");
  p.setLevel(0, "100000", "2", "4");
  for (const int i : {0, 1, 5}) p.zone.zonsplot[i].setValue(1);
  EXPECT_FALSE(p.isopleths.drawIsopleths());
  EXPECT_EQ(p.record.boxes(), Texts{"Unable to plot Hazard Zones."});
  EXPECT_EQ(p.of(Kind::Circle).size(), 1U);
  EXPECT_EQ(p.desktop.pointer(), Pointer::standard);
  EXPECT_FALSE(p.progress.view.loaded());
}

TEST(WindRose, sharesTheWindOutOverSixteenSectors) {
  Plots p;
  const char* shares[] = {"10", "0", "20", "5", "0", "0", "15", "30"};
  for (int k = 0; k < 8; ++k) p.main.in.Givnwnd[k].setText(shares[k]);
  p.windRose.windRoseTable();
  // 80 % of wind: windHalf 5 in the north, 15 in the north-west, half of both between them.
  const double half[] = {5, 2.5, 0, 5, 10, 6.25, 2.5, 1.25, 0, 0, 0, 3.75, 7.5, 11.25, 15, 10};
  for (std::size_t j = 0; j < 16; ++j) {
    EXPECT_DOUBLE_EQ(p.rose.windHalf[j], half[j]) << j;
    EXPECT_DOUBLE_EQ(p.rose.windFrac[j], (half[j] + half[j] / 80) / 100) << j;
  }
  p.main.in.Givnwnd[1].setText("30");  // 110 %
  p.windRose.windRoseTable();
  EXPECT_EQ(p.rose.windHalf[2], 0);
  p.main.in.Givnwnd[1].setText("calm");  // the sum stays, and the sectors that need it
  p.main.in.Givnwnd[0].setText("12");
  p.main.in.Givnwnd[7].setText("0");
  p.windRose.windRoseTable();
  EXPECT_EQ(p.record.boxes().size(), 2U);
}

TEST(WindRose, walksFromMeanToMeanThroughTheRadiusOfEachSector) {
  Plots p;
  p.state.sourceX = 100;
  p.state.sourceY = 75;
  p.setLevel(1, "1000", "10", "100");
  p.zone.zonsplot[1].setValue(1);
  p.zone.zonsplot[1].setCaption("UEL");
  p.menu.hideDsply.setValue(1);
  p.rose.windFrac[0] = 0.2;   // R(0) = 80, with the wind from the north below the source
  p.rose.windFrac[15] = 0.4;  // R(15) = 60; a windless sector has 20
  ASSERT_TRUE(p.windRose.drawRoseEnd());
  const auto lines = p.of(Kind::Line);
  ASSERT_EQ(lines.size(), 16U * 90);
  const auto radius = [&](std::size_t line) {
    return std::hypot(lines[line].x2 - 100, lines[line].y2 - 75) * p.state.plotScale;
  };
  expectPoint(lines[0].x1, lines[0].y1, {100 + 35 * std::cos(90 * 0.0175), 75 + 35 * std::sin(90 * 0.0175)});
  EXPECT_NEAR(radius(44), 80, 1e-9);                                    // the middle of sector 0
  EXPECT_NEAR(radius(89), 70 + 46 * 10.0 / 45 - 44 * 30.0 / 45, 1e-9);  // 46 steps towards it, 44 away
  EXPECT_NEAR(radius(7 * 90), radius(6 * 90), 1e-9);
  EXPECT_EQ(lines[0].colour, Colour(255, 0, 0));
  EXPECT_EQ(p.printed(), Texts{"UEL - 100 m"});
  p.plot.canvas.Cls();
  ASSERT_TRUE(p.windRose.drawRoseBegin());  // no floor of 0.2 E, no label
  const auto begin = p.of(Kind::Line);
  EXPECT_NEAR(std::hypot(begin[7 * 90].x2 - 100, begin[7 * 90].y2 - 75), 5, 0.1);
  EXPECT_TRUE(p.printed().empty());
  p.setLevel(1, "1000", ">10000", "100");
  p.drwfrm.view.show();
  EXPECT_FALSE(p.windRose.drawRoseBegin());
  EXPECT_EQ(p.record.boxes(), Texts{"Unable to plot Zones."});
  EXPECT_FALSE(p.drwfrm.view.loaded());
}

}  // namespace
}  // namespace noldarz::test
