#include "cli/plot.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

struct PlotCommand : testing::Test {
  PlotCommand() { makeStudy(folder.study(), exampleStudy("lpg")); }

  /// What is reported, empty for a drawing that was written.
  std::string plot(PlotRequest request) {
    request.target = folder / "start";
    if (request.file.empty()) request.file = folder / "zones.svg";
    std::ostringstream errors;
    status = plotToFile(request, "1.0", errors, folder.folders());
    return errors.str();
  }
  std::string svg() const { return readFile(folder / "zones.svg"); }
  bool shows(const std::string& text) const { return svg().find(text) != std::string::npos; }

  TestFolder folder;
  ExitStatus status = ExitStatus::done;
};

TEST_F(PlotCommand, writesZonesWithLegendAndInputs) {
  PlotRequest request;
  request.size = "220x200";
  request.limitCircles = true;
  EXPECT_EQ(plot(request), "");
  EXPECT_TRUE(shows("width=\"220.00mm\" height=\"200.00mm\""));  // legend and foot are within the page
  for (const char* text : {"> 1074.51 m<",
                           "TEEL0: Conc. (ppm) 1000 Dist. : 1074.51 m",
                           "Isopleth",
                           "Scale:- 1 :",
                           "Injury Limit 617.10 m",
                           "Release type POOL",
                           "Valley Gas Depot",
                           "Wind velocity 3 m/s"})
    EXPECT_TRUE(shows(text)) << text;
  EXPECT_EQ(svg().find("stroke-dasharray"), std::string::npos);

  request.chosen = "0,2";
  request.limitCircles = false;
  request.lineStyles = true;
  request.wind = 90;
  EXPECT_EQ(plot(request), "");
  EXPECT_FALSE(shows("TEEL0"));
  EXPECT_TRUE(shows("UEL:"));
  EXPECT_TRUE(shows("stroke-dasharray"));
}

TEST_F(PlotCommand, drawsTheSideViewAndTheRose) {
  PlotRequest request;
  request.kind = PlotKind::elevation;
  EXPECT_EQ(plot(request), "");
  EXPECT_TRUE(shows("Gr.Lvl."));
  request.kind = PlotKind::rose;
  EXPECT_EQ(plot(request), "");
  EXPECT_TRUE(shows("TEEL1: - 930.34 m"));
}

TEST_F(PlotCommand, drawsChartsAndABand) {
  PlotRequest request;
  request.kind = PlotKind::concentration;
  EXPECT_EQ(plot(request), "");
  EXPECT_TRUE(shows("Distance from source (km)"));
  request.kind = PlotKind::percent;
  EXPECT_EQ(plot(request), "");
  EXPECT_TRUE(shows("Injury (%)"));
  request.kind = PlotKind::pipeline;
  request.trace = (folder / "trace.csv").string();
  const struct {
    const char* trace;
    const char* error;
  } traces[] = {{"0,0\n", "two points at least"},
                {"0,0\n5\n", ":2: \"5\" is no point"},
                {"1,1\n1,1\n", ": the same point twice in a row"},
                {"1,1\n2,1\n3,1\n4,1\n5,1\n6,1\n7,1\n8,1\n9,1\n10,1\n11,1\n12,1\n", ": a pipeline has 11"},
                {"# x,y\n0,0\n500,0\n800,300\n", ""}};
  for (const auto& [trace, error] : traces) {
    writeFile(folder / "trace.csv", trace);
    const std::string told = plot(request);
    EXPECT_EQ(told.empty(), *error == 0) << told;
    EXPECT_NE(told.find(error), std::string::npos) << told;
  }
  EXPECT_TRUE(shows("Dist. : 61.50 m"));
}

TEST_F(PlotCommand, refusesWhatItCantTake) {
  const struct {
    std::function<void(PlotRequest&)> change;
    ExitStatus status;
    const char* error;
  } cases[] = {
      {[&](PlotRequest& r) { r.size = "A9"; }, ExitStatus::refused, "--size: \"A9\" is neither A4"},
      {[&](PlotRequest& r) { r.size = "10x1e9"; }, ExitStatus::refused, "--size"},
      {[&](PlotRequest& r) { r.chosen = "0,6"; }, ExitStatus::refused, "--levels: \"0,6\" is no list"},
      {[&](PlotRequest& r) { r.kind = PlotKind::rose, r.wind = 5; }, ExitStatus::refused, "--wind goes with isopleths"},
      {[&](PlotRequest& r) { r.file = folder / "zones.jpg"; }, ExitStatus::refused, "is written as .svg"},
      {[&](PlotRequest& r) { r.file = folder / "no/zones.svg"; }, ExitStatus::failed, "no/zones.svg"},
  };
  for (const auto& c : cases) {
    PlotRequest request;
    c.change(request);
    EXPECT_NE(plot(request).find(c.error), std::string::npos) << c.error;
    EXPECT_EQ(status, c.status) << c.error;
  }
  EXPECT_FALSE(fs::exists(folder / "zones.svg"));
  changeFromOutside(folder.study(), "UPDATE [dsptbl-1] SET givnwnd1 = 90, givnwnd2 = 30");
  PlotRequest rose;
  rose.kind = PlotKind::rose;
  EXPECT_NE(plot(rose).find("1. Total Wind percentage can not be > 100%"), std::string::npos);
  EXPECT_EQ(status, ExitStatus::failed);
  EXPECT_FALSE(fs::exists(folder / "zones.svg"));
}

}  // namespace
}  // namespace noldarz::test
