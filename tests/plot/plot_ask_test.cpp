// Questions to the drawing: what arrives at a place, what a curve says, what a leak along a pipeline reaches.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "plot/location_query.h"
#include "plot/pipeline.h"
#include "plot/profile_charts.h"
#include "support/test_study.h"

namespace noldarz::test {
namespace {

using Kind = Primitive::Kind;

/// The chlorine example, computed.
struct Ask : TestStudy {
  explicit Ask(const std::string& text = exampleStudy("chlorine")) : TestStudy(text) {
    run("start");
    compute(*this);
    record.clear();
  }
  void openPlot() { run("choose prntprv \"Plot Hazard Zones\"\nclick zardzone.DwgOnPic"); }
  /// Scale (m a mm) over 10 mm, clicked.
  void clickScale(const std::string& metres) {
    run("mouse down Drwfrm.Drw1 20 20\nmouse down Drwfrm.Drw1 30 20\nenter Drwfrm.eqlvalu " + metres +
        "\nclick Drwfrm.clssetbox");
  }
  const Drawing& drawing() { return field("Drwfrm.Drw1").canvas()->drawing(); }
  std::vector<Primitive> lines(Colour colour) {
    std::vector<Primitive> found;
    for (const Primitive& p : drawing().primitives)
      if (p.kind == Kind::Line && p.colour == colour) found.push_back(p);
    return found;
  }
  std::string status() { return text("Drwfrm.statuslbl"); }
};

TEST(LocationQuery, tellsWhatArrivesAtAPlace) {
  Ask ask;
  ask.openPlot();
  ask.run("click Drwfrm.usrdef\nclick Drwfrm.sltloctn");
  ask.clickScale("100");
  ask.run("mouse down Drwfrm.Drw1 100 100");  // the source
  EXPECT_EQ(ask.state().drawMode, 4);
  EXPECT_EQ(ask.drawing().texts, (Texts{"200.00 m ", "  Source point"}));
  ask.run("mouse move Drwfrm.Drw1 60 70");
  EXPECT_EQ(ask.field("Drwfrm.Xline").left(), 100);
  EXPECT_EQ(ask.field("Drwfrm.Xline").width(), -40);
  ask.run("mouse down Drwfrm.Drw1 106 92 right\nmouse down Drwfrm.Drw1 100 100");
  const auto& texts = ask.drawing().texts;
  ASSERT_EQ(texts.size(), 6U);
  // 100 m from the source, in any direction: by the reference model 204.877656 ppm.
  EXPECT_EQ(texts[2], "  Distance : 100 m");
  EXPECT_EQ(texts[3], "  Conc.: 204.88 ppm");
  EXPECT_EQ(texts[4], "  Hazard LvL: Fatel Hazard");
  EXPECT_EQ(texts[5], "  Distance : 0 m");  // on the source itself
  EXPECT_EQ(ask.status(), "There is no concentration on the source itself.");
  ask.run("key Drwfrm.Drw1 Escape");
  EXPECT_EQ(ask.state().drawMode, 0);
  EXPECT_EQ(ask.state().locationReady, 0);
  EXPECT_EQ(ask.drawing().texts.size(), 6U);
  // Left in the middle, it is none of the next life of the view; nor is a chart.
  ask.run("click Drwfrm.sltloctn\nclose Drwfrm\nclick zardzone.clsfrm1\nchoose prntprv #2\nclose Drwfrm");
  ask.openPlot();
  EXPECT_EQ(ask.state().locationReady, 0);
  EXPECT_EQ(ask.field("Drwfrm.ftlinjryprofl").tag(), "0");
}

TEST(LocationQuery, namesTheHazardByTheLevelsOfTheRun) {
  Ask ask;
  const LevelFields& level = ask.session->system().mainView().level;
  const struct {
    double conc;
    const char* line;
  } cases[] = {
      {20, "Fatel"}, {19.99, "High"}, {2, "High"}, {1.99, "Medium"}, {0.5, "Medium"}, {0.25, "Low"}, {0.2499, "Safe"}};
  for (const auto& [conc, line] : cases) {
    const auto found = hazardLines(conc, level);
    ASSERT_EQ(found.size(), 1U) << conc;
    EXPECT_NE(found[0].find(line), std::string_view::npos) << conc;
  }
  level.conclbl[2].setCaption("Mine");
  EXPECT_TRUE(hazardLines(25, level).empty());
  level.constn[3].setText("none");
  EXPECT_TRUE(hazardLines(10, level).empty());
}

TEST(ProfileCharts, drawTheConcentrationAlongTheAxis) {
  const struct {
    const char* reach;
    const char* title;
    std::vector<std::string> labels;  // the first of the distances
    std::size_t samples;
  } charts[] = {{"999.99", "             Distance from source (m)-------->", {"999.99", "944.44"}, 1000},
                {"1000", "             Distance from source (km)-------->", {"1.000", "0.944"}, 1000},
                {"1800", "             Distance from source (km)-------->", {"1.800", "1.700"}, 1800}};
  for (const auto& chart : charts) {
    Ask ask;
    ask.run(std::string{"set maxdstprtxt "} + chart.reach + "\nset constn1 2400\nchoose prntprv #2");
    EXPECT_EQ(ask.views(), "dspmnfrm Drwfrm");
    EXPECT_FALSE(ask.field("Drwfrm.lndFRme").visible());
    const auto& texts = ask.drawing().texts;
    EXPECT_EQ(texts[0], "0 ");
    EXPECT_EQ(texts[1], "(ppm)");
    EXPECT_EQ(texts[3], chart.title);
    EXPECT_EQ(Texts(texts.begin() + 4, texts.begin() + 6), chart.labels) << chart.reach;
    EXPECT_EQ(Texts(texts.end() - 13, texts.end() - 11), (Texts{"2600.00", "2400.00"}));
    const auto curve = ask.lines(concentrationCurve);
    ASSERT_EQ(curve.size(), chart.samples);
    EXPECT_EQ(curve[0].x1, 10);
    EXPECT_NEAR(curve[99].x2, 10 + 100 / (strictNumber(chart.reach) / 180), 1e-9);
    EXPECT_NEAR(curve[99].y2, 130 - 204.877656 / (2640.0 / 130), 1e-6);  // 100 m, by the reference model
  }
}

TEST(ProfileCharts, areReadByPointerAndKeys) {
  const struct {
    const char* reach;
    const char* distance;
  } charts[] = {{"999.99", "144.999 m"}, {"1000", "0.145 Km"}};
  for (const auto& [reach, distance] : charts) {
    Ask ask;
    ask.run(std::string{"set maxdstprtxt "} + reach + "\nset constn1 2400\nchoose prntprv #2");
    const auto curve = ask.lines(concentrationCurve);
    const double x = 10.31 + 145.0 / 1000 * 180;
    double y = 0;
    for (const Primitive& p : curve)
      if (p.x1 <= x && p.x2 >= x) y = (p.y1 + p.y2) / 2;
    const std::string at = " Drwfrm.Drw1 " + plainText(x) + " " + plainText(y);
    ask.run("mouse move" + at);
    const std::string reading =
        "Concentration " + plainText(std::abs(rounded(2600 * (y - 130) / 130, 2))) + " ppm\n At Distance " + distance;
    EXPECT_EQ(ask.text("Drwfrm.mousetxt"), reading);
    ask.run("mouse down" + at + "\nmouse down" + at + " right");
    EXPECT_EQ(ask.text("Drwfrm.LblDsply(0)"), reading);
    EXPECT_EQ(ask.text("Drwfrm.LblDsply(1)"), reading);
    ask.run("key Drwfrm.Drw1 Right");
    EXPECT_NE(ask.text("Drwfrm.mousetxt"), reading);
    EXPECT_TRUE(ask.text("Drwfrm.mousetxt").starts_with("Concentration "));
    ask.run("dblclick Drwfrm.LblDsply(0)");
    EXPECT_TRUE(ask.field("Drwfrm.lndFRme").visible());
    ask.run("dblclick Drwfrm.LblDsply(1)\nmouse move Drwfrm.Drw1 150 20");
    EXPECT_FALSE(ask.field("Drwfrm.lndFRme").visible());
    EXPECT_EQ(ask.text("Drwfrm.mousetxt"), "");
  }
}

TEST(ProfileCharts, areFollowedPointByPoint) {
  Ask ask;
  ask.run("set maxdstprtxt 20\nchoose prntprv #2");
  Texts readings;
  for (int i = 0; i < 3; ++i) {
    ask.run("key Drwfrm.Drw1 Right");
    readings.push_back(ask.text("Drwfrm.mousetxt").substr(ask.text("Drwfrm.mousetxt").find("At")));
  }
  // Points are a metre apart, at 10 + 9 mm and so on; a reading counts from 10.31 mm.
  EXPECT_EQ(readings, (Texts{"At Distance 0.966 m", "At Distance 1.966 m", "At Distance 2.966 m"}));
  ask.run("set maxdstprtxt 6000\nclick Drwfrm.ftlinjryprofl");
  std::set<std::string> names;  // the curves lie on one another at the end
  for (int i = 0; i < 2; ++i) {
    ask.run("key Drwfrm.Drw1 Up");
    names.insert(ask.text("Drwfrm.mousetxt").substr(0, 16));
  }
  EXPECT_EQ(names, (std::set<std::string>{"Percent Fatality", "Percent Injury 0"}));
  ask.run("set molwttxt none\nclick Drwfrm.ihrprofl");
  EXPECT_EQ(ask.record.boxes(), Texts{"Unable to plot Concentration Profile."});
}

TEST(ProfileCharts, narrowToADistanceAndComeBack) {
  Ask ask;
  ask.run("choose prntprv #2\nclick Drwfrm.ftlinjryprofl");
  EXPECT_EQ(ask.drawing().texts.back(), " Percent Injury");
  EXPECT_EQ(ask.lines(fatalityCurve).size(), ask.lines(injuryCurve).size());
  EXPECT_EQ(ask.record.boxes(), Texts{});
  ask.run("click Drwfrm.ftltyZoom\nmouse move Drwfrm.Drw1 40 50");
  EXPECT_EQ(ask.field("Drwfrm.Xline").left(), 40);
  ask.run("mouse down Drwfrm.Drw1 5 50");  // no distance
  EXPECT_EQ(ask.field("Drwfrm.Drw1").tag(), "4");
  ask.run("mouse down Drwfrm.Drw1 40 50");
  EXPECT_EQ(ask.text("maxdstprtxt"), "1036.157");
  EXPECT_EQ(ask.state().maxDistPrbt, 1036.157);
  EXPECT_EQ(ask.field("Drwfrm.Drw1").tag(), "0");
  ask.run("click Drwfrm.restzoom");
  EXPECT_EQ(ask.state().maxDistPrbt, 6216.94);
  const std::size_t drawn = ask.drawing().primitives.size();
  const struct {
    const char* end;
    const char* command;
    Texts boxes;
  } cases[] = {
      {"N.A.", "restzoom", {"Unable to plot Profile."}},
      {"N.A.", "ftlinjryprofl", {"Unable to plot Profile."}},
      {"10000.01",
       "ftlinjryprofl",
       {"Plotting of Injury-Fatality Profile may take longer to display.\nNOTE : Limit simulation to 10000 m "}},
      {"10000", "ftlinjryprofl", {}}};
  for (const auto& c : cases) {
    ask.record.clear();
    ask.field("endpt(5)").setText(c.end);
    ask.run(std::string{"click Drwfrm."} + c.command);
    EXPECT_EQ(ask.record.boxes(), c.boxes) << c.end;
    EXPECT_EQ(ask.drawing().primitives.size(), drawn);
  }
  ask.run("set constn1 none\nclick Drwfrm.ihrprofl");
  EXPECT_EQ(ask.record.boxes(), Texts{"Unable to plot Concentration Profile."});
  EXPECT_EQ(ask.views(), "dspmnfrm");
}

TEST(Pipeline, takesItsBearings) {
  const struct {
    double x, y, bearing;
  } ways[] = {{10, 0, 180},
              {0, -10, 90},
              {-10, 0, 360},
              {0, 10, 270},
              {10, -10, 135},
              {-10, -10, 45},
              {10, 10, 225},
              {-10, 10, 315}};
  for (const auto& way : ways) EXPECT_EQ(bearing(50, 50, 50 + way.x, 50 + way.y), way.bearing) << way.bearing;
}

/// A pipeline study with a trace, ended and scaled so that the band is 10 mm wide to each side.
struct Traced : Ask {
  explicit Traced(const std::vector<std::pair<int, int>>& points)
      : Ask(exampleStudy("chlorine", {{"Torn transfer hose", "Torn pipe"}})) {
    field("endpt(0)").setText("10");
    openPlot();
    run("click Drwfrm.pltFrPipe");
    for (const auto& [x, y] : points) run("mouse down Drwfrm.Drw1 " + std::to_string(x) + " " + std::to_string(y));
    run("key Drwfrm.Drw1 Enter");
  }
  /// How many ends of lines of the band meet no other end.
  int looseEnds() {
    const auto band = lines(basicPalette[4]);
    int loose = 0;
    for (std::size_t i = 0; i < band.size(); ++i)
      for (const auto& [x, y] : {std::pair{band[i].x1, band[i].y1}, std::pair{band[i].x2, band[i].y2}}) {
        bool met = false;
        for (std::size_t j = 0; j < band.size(); ++j) {
          if (j == i) continue;
          met = met || std::hypot(band[j].x1 - x, band[j].y1 - y) < 0.2 ||
                std::hypot(band[j].x2 - x, band[j].y2 - y) < 0.2;
        }
        loose += met ? 0 : 1;
      }
    return loose;
  }
};

TEST(Pipeline, drawsABandAroundItsLine) {
  const struct {
    std::vector<std::pair<int, int>> points;
    std::size_t lines;
    double left, right, top, bottom;
  } traces[] = {{{{50, 80}, {100, 80}}, 2 + 180 + 180, 40, 110, 70, 90},              // a stadium
                {{{50, 80}, {100, 80}, {130, 50}}, 4 + 45 + 360, 40, 140, 40, 90},    // to the left
                {{{50, 80}, {100, 80}, {130, 110}}, 4 + 45 + 360, 40, 140, 70, 120},  // to the right
                {{{50, 80}, {100, 80}, {150, 80}}, 4 + 360, 40, 160, 70, 90},         // straight on
                {{{20, 100}, {50, 70}, {80, 70}, {110, 100}, {140, 100}, {160, 80}, {180, 80}, {185, 60}},
                 14 + 45 + 45 + 45 + 45 + 45 + 76 + 360,
                 10,
                 195,
                 50,
                 110}};
  for (const auto& trace : traces) {
    Traced traced{trace.points};
    EXPECT_EQ(traced.state().drawMode, 6);
    traced.clickScale("10");
    const auto band = traced.lines(basicPalette[4]);
    EXPECT_EQ(band.size(), trace.lines);
    const auto least = [&](auto member) { return std::ranges::min(band, {}, member).*member; };
    const auto most = [&](auto member) { return std::ranges::max(band, {}, member).*member; };
    EXPECT_NEAR(least(&Primitive::x2), trace.left, 0.3) << trace.points.size();
    EXPECT_NEAR(most(&Primitive::x2), trace.right, 0.3);
    EXPECT_NEAR(least(&Primitive::y2), trace.top, 0.3);
    EXPECT_NEAR(most(&Primitive::y2), trace.bottom, 0.3);
    if (trace.points.size() <= 3) {
      EXPECT_EQ(traced.looseEnds(), 0) << trace.right;
    }
    EXPECT_EQ(traced.lines(basicPalette[8]).size(), trace.points.size() - 1);  // the line stays below
  }
}

TEST(Pipeline, endsStraightWhereItDoublesBack) {
  Traced traced{{{50, 80}, {100, 80}, {60, 80}}};
  traced.clickScale("10");
  ASSERT_FALSE(traced.lines(basicPalette[4]).empty());
  for (const Primitive& line : traced.lines(basicPalette[4])) EXPECT_LT(std::hypot(line.x2 - 75, line.y2 - 80), 60);
}

TEST(Pipeline, takesElevenPointsAndNoMore) {
  Traced traced{{{50, 80}}};
  EXPECT_EQ(traced.state().drawMode, 0);  // one point is no line
  EXPECT_FALSE(traced.field("Drwfrm.scleset").visible());
  traced.run("click Drwfrm.pltFrPipe\nmouse down Drwfrm.Drw1 10 80\nmouse move Drwfrm.Drw1 20 70");
  EXPECT_EQ(traced.text("Drwfrm.mousetxt"), "135 °deg");
  for (int i = 2; i <= 11; ++i)
    traced.run("mouse down Drwfrm.Drw1 " + std::to_string(10 * i) + " " + std::to_string(80 + i % 2));
  EXPECT_EQ(traced.status(), "The trace has all its points: press Enter.");
  traced.run("key Drwfrm.Drw1 Escape");
  EXPECT_EQ(traced.state().drawMode, 5);  // ends with Enter alone
  traced.record.clear();
  traced.run("mouse down Drwfrm.Drw1 150 100");
  EXPECT_EQ(traced.record.boxes(), Texts{"Maximum Trace points is 10"});
  EXPECT_EQ(traced.state().traceCount, 11);
  traced.run("key Drwfrm.Drw1 Enter\nset endpt(0) N.A.");
  traced.record.clear();
  traced.clickScale("10");
  EXPECT_EQ(traced.record.boxes(), Texts{"Unable to plot Hazard Zones."});
  EXPECT_TRUE(traced.lines(basicPalette[4]).empty());
}

TEST(ClickDialog, isLeftByEscapeWithoutLoss) {
  Ask ask;
  ask.openPlot();
  ask.run("click Drwfrm.usrdef\nmouse down Drwfrm.Drw1 20 20\nkey Drwfrm.Drw1 Escape");
  EXPECT_EQ(ask.field("Drwfrm.Drw1").tag(), "0");
  EXPECT_FALSE(ask.field("Drwfrm.scleset").visible());
  EXPECT_TRUE(ask.field("Drwfrm.usrdef").enabled());
}

}  // namespace
}  // namespace noldarz::test
