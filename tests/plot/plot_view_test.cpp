// The plot view as a user works it: from a computed run to plots at a scale that fits the page, or that he clicks.

#include <gtest/gtest.h>

#include "platform/canvas/canvas.h"
#include "plot/pointer.h"
#include "support/test_study.h"

namespace noldarz::test {
namespace {

using Kind = Primitive::Kind;

/// The chlorine example, computed, with the plot view open.
struct Plot : TestStudy {
  explicit Plot(const std::string& text = exampleStudy("chlorine")) : TestStudy(text) {
    run("start");
    compute(*this);
    openPlot();
  }
  void openPlot() {
    run("choose prntprv \"Plot Hazard Zones\"\nclick zardzone.DwgOnPic");
    record.clear();
  }
  const Drawing& drawing() { return field("Drwfrm.Drw1").canvas()->drawing(); }
  std::string tags() {
    return tagOf("Drwfrm.Drw1") + tagOf("Drwfrm.Ftvert") + tagOf("Drwfrm.fthiznt") + tagOf("Drwfrm.FtvertB") +
           tagOf("Drwfrm.selctdwg");
  }
  std::string tagOf(const std::string& name) { return field(name).tag(); }
  bool prints(const std::string& text) {
    const auto& texts = drawing().texts;
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }
};

TEST(PlotView, opensFromTheZonesAndGoesBack) {
  Plot plot;
  const struct {
    const char* line;
    const char* views;
  } steps[] = {{"", "Drwfrm"},
               {"dblclick Drwfrm.North_wndDialPic", "Drwfrm zardzone"},
               {"click zardzone.clsfrm1", "Drwfrm"},
               {"click Drwfrm.exit", "zardzone dspmnfrm"},
               {"click zardzone.clsfrm1", "dspmnfrm"},
               {"choose prntprv #3", "zardzone"},
               {"dblclick zardzone.Image1", "Drwfrm"},
               {"close Drwfrm", "zardzone"},
               {"close zardzone", "dspmnfrm"},
               {"click zonethumb", "zardzone"},
               {"close", ""}};
  for (const auto& [line, views] : steps) {
    plot.run(line);
    EXPECT_EQ(plot.views(), views) << line;
  }
}

TEST(PlotView, tellsOfTheRunItShows) {
  Plot plot{exampleStudy("chlorine", {{"Torn transfer hose", "Torn transfer pipe"}})};
  EXPECT_EQ(plot.text("Drwfrm.scnortxt"), "Scenario: " + plot.text("scnrotxtlbl"));
  EXPECT_EQ(plot.text("Drwfrm.PrjNameTxt"), "For " + plot.text("Orglbltxt"));
  EXPECT_EQ(plot.text("Drwfrm.LblDsply(2)"), "TEEL3/IDLH: Conc. (ppm) 20 Dist. : 393.49 m");
  EXPECT_EQ(plot.field("Drwfrm.linelbl2(5)").backColour(), Colour(0, 128, 0));
  EXPECT_TRUE(plot.field("Drwfrm.frPipeln").enabled());
  EXPECT_EQ(plot.state().pipeWords, (std::array<std::int32_t, 3>{0, 0, 15}));
}

TEST(PlotView, fitsAPlotToThePage) {
  Plot plot;
  plot.field("endpt(5)").setText("1290");
  plot.field("Drwfrm.Drw1").setHeight(149 / millimetresPerTwip);
  plot.field("Drwfrm.Drw1").setWidth(200 / millimetresPerTwip);
  const struct {
    const char* command;
    const char* scale;
    double x, y;
    const char* tags;
    std::array<double, 4> firstAxis, secondAxis;
    const char* source;
  } fits[] = {{"Ftvert", "100.00", 100, 139, "01000", {200, 139, 0, 139}, {100, 0, 100, 200}, "  Source point"},
              {"fthiznt", "71.67", 10, 74.5, "00100", {10, 0, 10, 200}, {200, 74.5, 0, 74.5}, "  Source point"},
              {"isoelvat",
               "71.67",
               10,
               149 - (1 / (1290.0 / 180) + 10),
               "00100",
               {10, 0, 10, 200},
               {200, 149 - (1 / (1290.0 / 180) + 10), 0, 149 - (1 / (1290.0 / 180) + 10)},
               "  Source point \n            at : 1 m"},
              {"FtvertB", "200.00", 100, 74.5, "03000", {200, 74.5, 0, 74.5}, {100, 0, 100, 200}, "  Source point"}};
  for (const auto& fit : fits) {
    plot.run(std::string{"click Drwfrm."} + fit.command);
    EXPECT_EQ(plot.text("Drwfrm.sclsdspl"), std::string{"Scale:- 1 : "} + fit.scale + " m") << fit.command;
    EXPECT_NEAR(plot.state().sourceX, fit.x, 1e-9);
    EXPECT_NEAR(plot.state().sourceY, fit.y, 1e-9);
    EXPECT_EQ(plot.tags(), fit.tags);
    std::vector<Primitive> axes;
    std::size_t grid = 0;
    for (const Primitive& p : plot.drawing().primitives) {
      if (p.kind == Kind::Line && p.colour == Colour(SystemColour::windowText)) axes.push_back(p);
      if (p.kind == Kind::Line && axes.empty()) ++grid;
    }
    EXPECT_EQ(grid, 21U + 15U) << fit.command;
    ASSERT_EQ(axes.size(), 2U);
    for (const auto& [axis, expected] : {std::pair{axes[0], fit.firstAxis}, std::pair{axes[1], fit.secondAxis}}) {
      EXPECT_NEAR(axis.x1, expected[0], 1e-9) << fit.command;
      EXPECT_NEAR(axis.y1, expected[1], 1e-9);
      EXPECT_NEAR(axis.x2, expected[2], 1e-9);
      EXPECT_NEAR(axis.y2, expected[3], 1e-9);
    }
    EXPECT_TRUE(plot.prints(fit.source)) << fit.command;
    const bool elevated = std::string{fit.command} == "isoelvat";
    EXPECT_EQ(plot.field("Drwfrm.GroundLvl").visible(), elevated);
    EXPECT_EQ(plot.prints("  Gr.Lvl."), elevated);
    EXPECT_EQ(plot.state().isoElevate, elevated ? 1 : 0);
    EXPECT_EQ(plot.field("Drwfrm.North_wndDialPic").visible(), std::string{fit.command} == "FtvertB");
  }
}

TEST(PlotView, zoomsFromLevelToLevelWithAnEnd) {
  Plot plot;
  plot.run("click Drwfrm.Ftvert");
  plot.field("endpt(3)").setText("N.A.");
  plot.field("zardzone.zonsplot(3)").setValue(0);  // or it would end the plot
  const struct {
    const char* line;
    int level;
    const char* box;
  } steps[] = {{"click Drwfrm.zoomout1", 5, "Zoom Limit"},
               {"click Drwfrm.zoomin1", 4, ""},
               {"click Drwfrm.zoomin1", 2, ""},  // 3 has no end
               {"click Drwfrm.zoomin1", 1, ""},
               {"click Drwfrm.zoomin1", 0, ""},
               {"click Drwfrm.zoomin1", 0, "Zoom Limit"},
               {"click Drwfrm.zoomout1", 1, ""},
               {"click Drwfrm.zoomout1", 2, ""},
               {"click Drwfrm.zoomout1", 4, ""},
               {"click Drwfrm.zoomall", 5, ""}};
  for (const auto& [line, level, box] : steps) {
    plot.record.clear();
    plot.run(line);
    EXPECT_EQ(plot.state().zoomLevel, level) << line;
    EXPECT_EQ(plot.record.boxes(), *box ? Texts{box} : Texts{}) << line;
  }
  plot.run("mouse down Drwfrm.Drw1 50 50\nclick Drwfrm.zoomin1");  // a click takes a vertical fit out of the zoom
  EXPECT_EQ(plot.state().zoomLevel, 4);
  EXPECT_EQ(plot.text("Drwfrm.sclsdspl"),
            "Scale:- 1 : " + Format(6216.94 / (8445 * 25.4 / 1440 - 20) * 10, "0.00") + " m");
  plot.run("click Drwfrm.ClrScrn");
  const auto cleared = plot.drawing().primitives.size();
  for (int i = 0; i < levelCount; ++i) plot.field("endpt(" + std::to_string(i) + ")").setText("N.A.");
  plot.record.clear();
  plot.run("click Drwfrm.fthiznt");
  EXPECT_EQ(plot.record.boxes(), Texts{"Unable to plot Hazard Zones."});
  EXPECT_EQ(plot.drawing().primitives.size(), cleared);
}

TEST(PlotView, takesAScaleFromTwoClicks) {
  Plot plot;
  plot.run("click Drwfrm.usrdef\nmouse move Drwfrm.Drw1 150 60");
  EXPECT_EQ(plot.field("Drwfrm.scleset").left(), 100);
  plot.run("mouse down Drwfrm.Drw1 40 30\nmouse move Drwfrm.Drw1 60 45");
  EXPECT_EQ(plot.field("Drwfrm.Xline").left(), 60);
  plot.run("mouse down Drwfrm.Drw1 40 30");  // the same point gives no scale
  EXPECT_EQ(plot.field("Drwfrm.Drw1").tag(), "3");
  plot.run("mouse down Drwfrm.Drw1 70 70");
  EXPECT_EQ(plot.text("Drwfrm.frstptnlbl(2)"), "50 Units = ");
  EXPECT_FALSE(plot.field("Drwfrm.clssetbox").enabled());
  const struct {
    const char* units;
    const char* box;
    bool enabled;
  } entries[] = {{"", "Units Required", true},
                 {"1,5", "Units Required", true},
                 {"-3", "Units should be >0", false},
                 {"0", "Units should be >0", false}};
  for (const auto& [units, box, enabled] : entries) {
    plot.record.clear();
    plot.run(std::string{"set Drwfrm.eqlvalu 7\nenter Drwfrm.eqlvalu \""} + units + "\"");
    EXPECT_EQ(plot.record.boxes(), Texts{box}) << units;
    EXPECT_EQ(plot.field("Drwfrm.clssetbox").enabled(), enabled) << units;
    EXPECT_FALSE(plot.field("Drwfrm.slcsrc").enabled());
  }
  plot.run("enter Drwfrm.eqlvalu 1000\nclick Drwfrm.clssetbox");
  EXPECT_EQ(plot.state().plotScale, 20);
  EXPECT_EQ(plot.text("Drwfrm.mousetxt"), " Select Source point");
  EXPECT_EQ(plot.tags(), "10000");  // waits for the source, on a grid
  EXPECT_EQ(plot.drawing().primitives.back().y2, plot.field("Drwfrm.Drw1").canvas()->ScaleWidth());
  plot.run("mouse down Drwfrm.Drw1 100 140");
  EXPECT_EQ(plot.state().sourceY, 140);
  EXPECT_EQ(plot.tags(), "00000");
  EXPECT_TRUE(plot.prints(" 6216.94 m"));
  plot.run("mouse move Drwfrm.Drw1 103 136");
  EXPECT_EQ(plot.text("Drwfrm.statuslbl"), "60.00 m right, 80.00 m up, 100.00 m from the source");
  plot.run("click Drwfrm.in8orntn\nmouse down Drwfrm.Drw1 100 70");  // the same scale, in all orientations
  EXPECT_TRUE(plot.prints("TEEL0: Dist. : 6216.94 m - 6216.94 m"));
}

TEST(PlotView, staysAsItWasWhenThereIsNoScale) {
  Plot plot;
  plot.run("click Drwfrm.usrdef\nmouse down Drwfrm.Drw1 10 10\nmouse down Drwfrm.Drw1 10.1 10");
  plot.run("enter Drwfrm.eqlvalu 1e308\nclick Drwfrm.clssetbox");
  EXPECT_EQ(plot.text("Drwfrm.statuslbl"), "That is no scale.");
  EXPECT_TRUE(plot.field("Drwfrm.scleset").visible());
  EXPECT_EQ(plot.state().plotScale, 0);
  plot.run("set htreltxt 1e308\nclick Drwfrm.isoelvat");
  EXPECT_EQ(plot.record.boxes(), Texts{"Unable to plot Hazard Zones."});
  plot.run("enter Drwfrm.eqlvalu 5\nfocus Drwfrm.eqlvalu\nset Drwfrm.eqlvalu 0\nclose Drwfrm");
  plot.record.clear();
  plot.run("focus zardzone.sclenotxt");  // what was asked for is no more
  EXPECT_EQ(plot.record.boxes(), Texts{});
}

TEST(PlotView, keepsZoomAndDialBesideTheZones) {
  Plot plot;
  plot.run("click Drwfrm.FtvertB\ndblclick Drwfrm.North_wndDialPic\nslide zardzone.wndsld1 90");
  plot.run("click Drwfrm.zoomin1\nclick Drwfrm.zoomin1");
  EXPECT_EQ(plot.state().zoomLevel, 3);
  EXPECT_NEAR(plot.field("Drwfrm.wndarm").left(), 900 + 550, 0.1);  // as it came to the front
}

TEST(PlotView, keepsTheBoxOfTheScaleOutOfThePointersWay) {
  const struct {
    double x, y, left, top;
  } places[] = {{100, 130, 105, 100},
                {150, 60, 100, 30},
                {150, 130, 100, 100},
                {140, 19, 90, 20},
                {150, 10, 100, 11},
                {100, 60, 105, 65},
                {140, 60, 145, 65},
                {150, 20, 155, 25},
                {150, 122, 155, 127}};
  for (const auto& p : places) {
    const BoxPlace place = boxPlace(p.x, p.y);
    EXPECT_EQ(place.left, p.left) << p.x << " " << p.y;
    EXPECT_EQ(place.top, p.top) << p.x << " " << p.y;
  }
}

TEST(PlotView, expandsOverTheScreenAndHidesWhatIsNotWanted) {
  Plot plot;
  plot.run("click Drwfrm.Ftvert\nclick Drwfrm.Expscrn");
  EXPECT_EQ(plot.text("Drwfrm.Expscrn"), "Small Screen");
  EXPECT_EQ(plot.field("Drwfrm.Drw1").width(), 28800 - 310);
  EXPECT_EQ(plot.field("Drwfrm.lndFRme").height(), 3500);
  EXPECT_EQ(plot.drawing().texts.size(), 2U);  // title and scale
  plot.run("click Drwfrm.fthiznt");
  EXPECT_TRUE(plot.prints("NOLDA -RZ: Dispersion Model (Isopleth) For " + plot.text("Orglbltxt")));
  EXPECT_TRUE(plot.prints(plot.text("Drwfrm.scnortxt")));
  plot.run("click Drwfrm.file\nclick Drwfrm.hideDsply");
  EXPECT_FALSE(plot.field("Drwfrm.lndFRme").visible());
  plot.run("click Drwfrm.hideDsply");
  EXPECT_TRUE(plot.field("Drwfrm.lndFRme").visible());
  EXPECT_FALSE(plot.field("Drwfrm.North_wndDialPic").visible());  // a horizontal fit shows none
  plot.run("click Drwfrm.Expscrn");
  EXPECT_EQ(plot.field("Drwfrm.Drw1").width(), 11385);
}

TEST(PlotView, keepsTheWidthOfTheContoursForTheUser) {
  Plot plot;
  plot.run("click Drwfrm.no4\nclick Drwfrm.Ftvert");
  EXPECT_EQ(plot.drawing().primitives.back().kind, Kind::FontBold);
  EXPECT_EQ(plot.state().lineWidth, 4);
  plot.run("close Drwfrm\nclick zardzone.clsfrm1\nclick no2");  // there nothing is kept
  plot.openPlot();
  EXPECT_EQ(plot.state().lineWidth, 4);
  EXPECT_EQ(plot.field("Drwfrm.no4").value(), 1);
}

TEST(PlotView, savesWhatIsDrawn) {
  Plot plot;
  const fs::path file = plot.folder / "zones.bmp";
  plot.run("click Drwfrm.Ftvert\nclick Drwfrm.sve");
  EXPECT_FALSE(fs::exists(file));
  plot.run("answer " + file.string() + "\nclick Drwfrm.sve");
  EXPECT_TRUE(readFile(file).starts_with("BM"));
  plot.record.clear();
  plot.run("answer /nowhere/zones.bmp\nclick Drwfrm.sve");
  EXPECT_EQ(plot.record.boxes(), Texts{"Failed to save file."});
}

TEST(PlotView, laysAPictureUnderTheDrawing) {
  Plot plot;
  const fs::path plan = plot.folder / "plan.bmp";
  plot.run("click Drwfrm.Ftvert\nanswer " + plan.string() + "\nclick Drwfrm.sve\nclick Drwfrm.frmfle");
  EXPECT_EQ(plot.field("Drwfrm.selctdwg").tag(), "0");
  EXPECT_EQ(plot.field("Drwfrm.Drw1").canvas()->picture(), nullptr);
  plot.run("answer " + plan.string() + R"(
click Drwfrm.frmfle
click Drwfrm.usrdef
mouse down Drwfrm.Drw1 10 10
mouse down Drwfrm.Drw1 60 10
enter Drwfrm.eqlvalu 500
click Drwfrm.clssetbox
mouse down Drwfrm.Drw1 100 140
)");
  EXPECT_NE(plot.field("Drwfrm.Drw1").canvas()->picture(), nullptr);
  EXPECT_EQ(plot.field("Drwfrm.selctdwg").tag(), "2");
  EXPECT_EQ(plot.text("Drwfrm.sclsdspl"), "200.00 m");
  EXPECT_EQ(plot.drawing().texts.front(), "200.00 m ");
  const double W = plot.field("Drwfrm.Drw1").canvas()->ScaleWidth();
  std::vector<Primitive> lines;
  for (const Primitive& p : plot.drawing().primitives)
    if (p.kind == Kind::Line && lines.size() < 3) lines.push_back(p);
  EXPECT_EQ(lines[1].x1, W - 70);  // no grid before the bar
  EXPECT_EQ(lines[2].x2, W - 70);
  EXPECT_EQ(lines[0].colour, Colour(SystemColour::buttonText));
  writeFile(plan, "no picture");
  plot.run("answer " + plan.string() + "\nclick Drwfrm.frmfle");
  EXPECT_EQ(plot.field("Drwfrm.Drw1").canvas()->picture(), nullptr);
}

}  // namespace
}  // namespace noldarz::test
