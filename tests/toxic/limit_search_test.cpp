#include "toxic/limit_search.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/reference.h"
#include "support/test_system.h"

namespace noldarz::test {
namespace {

struct SearchSystem : TestSystem {
  LimitSearch& search() { return session.system().toxic().limitSearch; }
  /// Cells of the report table.
  std::vector<std::string> table() {
    std::vector<std::string> cells;
    for (const TableCell& cell : state().prbtTable) cells.push_back(cellText(cell));
    return cells;
  }
  /// The two presses of a release that kills and hurts.
  void compute() {
    setRelease();
    field("prbtoptn").setValue(0);
    set({{"avalftl", "-1.23"}, {"nvalftl", "0.7"}, {"avalinj", "1.35"}, {"nvalinj", "0.7"}});
    press();
    setLevels({"1000", "500", "200", "100", "50", "20"});
    press();
  }
};

void checkRun(const nlohmann::json& run) {
  SCOPED_TRACE(run.at("name").get<std::string>());
  SearchSystem system;
  system.field("prbtoptn").setValue(0);
  system.set(run.at("set"));
  system.press();
  system.setLevels(run.at("levels"));
  std::vector<std::string> replies = run.at("replies");
  system.session.desktop().answerQuestions([&](const MessageBox&) {
    if (replies.empty()) return Reply::no;
    const bool yes = replies.front() == "yes";
    replies.erase(replies.begin());
    return yes ? Reply::yes : Reply::no;
  });
  system.press();
  EXPECT_TRUE(replies.empty());
  for (const char* name : {"FatatyDistDsplyLbl", "InjuryDistDsplyLbl", "maxdstprtxt"})
    EXPECT_EQ(system.text(name), run.at(name).get<std::string>()) << name;
  EXPECT_NEAR(system.state().ftlLimitRaw, run.at("ftlLimitRaw").get<double>(), 1e-9);
  EXPECT_NEAR(system.state().injLimitRaw, run.at("injLimitRaw").get<double>(), 1e-9);
  if (!run.at("row").is_null()) {
    EXPECT_NEAR(system.state().ftlLimitStored, run["row"][0].get<double>(), 1e-9);
    EXPECT_NEAR(system.state().injLimitStored, run["row"][1].get<double>(), 1e-9);
  }
  system.search().fillTable();
  const std::vector<std::string> table = run.at("table");
  const std::vector<std::string> cells = system.table();
  for (std::size_t i = 0; i < table.size(); ++i) EXPECT_EQ(cells[i], table[i]) << "row " << i / 6 << ", cell " << i % 6;
  system.session.runLine("uncheck MaxFtlyDstOptn");
  EXPECT_EQ(system.text("FatatyDistDsplyLbl"), run["lethal"][0]);
  EXPECT_EQ(system.text("InjuryDistDsplyLbl"), run["lethal"][1]);
}

TEST(LimitSearch, givesTheLimitsAndTheTableOfTheReference) {
  auto file = openReference("limits.json");
  const auto runs = nlohmann::json::parse(file);
  EXPECT_GE(runs.size(), 20U);
  for (const auto& run : runs) checkRun(run);
}

TEST(LimitSearch, fillsTheRowsOfTheTable) {
  SearchSystem system;
  system.compute();
  const double end = system.field("endpt(5)").number();
  const double begin = system.field("bgnpt(0)").number();
  const double raw = system.state().ftlLimitRaw;
  system.search().fillTable();
  const std::vector<std::string> cells = system.table();
  for (int row = 0; row < tableRows; ++row) {
    const auto k = static_cast<std::size_t>(row) * rowCells;
    EXPECT_NEAR(strictNumber(cells[k]), begin + 0.1 + row * rounded(end / 20, 2), 0.006);
    EXPECT_LE(strictNumber(cells[k + 1]) + strictNumber(cells[k + 2]), 100.001);
    EXPECT_EQ(cells[k + 3].size() - cells[k + 3].find('.'), 4U) << cells[k + 3];
  }
  EXPECT_EQ(cells[0], plainText(rounded(begin + 0.1, 2)));
  EXPECT_EQ(cells[1], "100");
  EXPECT_EQ(cells[2], "0");  // the two may not pass 100 together
  for (std::size_t i = tableCells; i < cells.size(); ++i) EXPECT_EQ(cells[i], "0");
  EXPECT_NE(system.state().ftlLimitRaw, raw);  // by the coarser step
}

TEST(LimitSearch, showsAConcentrationAboveAMillionAs950000) {
  SearchSystem system;
  system.compute();
  system.set({{"QntyRelstxt", "50000"}});
  system.search().fillTable();
  EXPECT_EQ(system.table().at(4), "950000");
  EXPECT_GT(system.state().doseSum, 0);
}

TEST(LimitSearch, takesAStepByTheReach) {
  const struct {
    const char* reach;
    double step;
  } cases[] = {{"0", 1}, {"999.9", 1}, {"1000", 1}, {"1001", 1}, {"1500", 2}, {"2400", 2}, {"2500", 3}, {"9e9", 1000}};
  SearchSystem system;
  system.compute();
  system.set({{"isopwdth(4)", "2"}});
  for (const auto& [reach, step] : cases) {
    system.set({{"maxdstprtxt", reach}});
    system.search().findLimits();
    EXPECT_EQ(system.state().prbtStep, step) << reach;
  }
}

TEST(LimitSearch, endsWithinTheFirstMetreWithNothing) {
  SearchSystem system;
  system.compute();
  system.session.runLine("click redosimul");
  system.set(
      {{"isopwdth(4)", "1.98"}, {"maxdstprtxt", "100"}, {"bgnpt(0)", "2"}, {"endpt(5)", "100"}, {"avalftl", "no"}});
  system.search().fillTable();
  EXPECT_EQ(system.table().at(1), "0");
  EXPECT_EQ(system.table().at(2), "0");
  EXPECT_EQ(system.state().injLimitRaw, 0);
}

TEST(LimitSearch, computesNothingWhereLevelFourIsOpen) {
  SearchSystem system;
  system.compute();
  const double raw = system.state().ftlLimitRaw;
  for (const char* length : {"N.A.", ">10000"}) {
    system.set({{"isoplngt(4)", length}});
    system.search().fillTable();
    EXPECT_EQ(system.table().at(0), "0");
    EXPECT_EQ(system.state().ftlLimitRaw, raw);
  }
  system.set({{"isoplngt(4)", ">9999"}});  // not the mark of this distance
  system.search().fillTable();
  EXPECT_NE(system.table().at(0), "0");
}

TEST(LimitSearch, failsForAFieldThatIsNoNumberAndKeepsWhatItFound) {
  for (const char* name : {"maxdstprtxt", "constn(5)", "bgnpt(0)", "isopwdth(4)", "molwttxt", "avalinj", "wndveltxt"}) {
    SearchSystem system;
    system.compute();
    const double raw = system.state().ftlLimitRaw;
    system.set({{name, "N.A."}});
    EXPECT_THROW(system.search().findLimits(), RuntimeFailure) << name;
    EXPECT_EQ(system.state().ftlLimitRaw, raw) << name;
    EXPECT_THROW(system.search().fillTable(), RuntimeFailure) << name;
  }
  SearchSystem system;
  system.compute();
  system.set({{"bgnpt(0)", "-1e9"}});  // before the source: no endless walk to it
  EXPECT_THROW(system.search().findLimits(), RuntimeFailure);
}

/// A chart that writes down what it is given.
class ChartRecord : public ProfileSink {
 public:
  explicit ChartRecord(TestSystem& system) : system_(system) {}
  void drawFrame() override {
    ++frames;
    EXPECT_TRUE(segments.empty());
    EXPECT_FALSE(progress().visible());
  }
  void drawSegment(double x1, double y1, double x2, double y2, Colour colour) override {
    segments.push_back({x1, y1, x2, y2, colour});
    EXPECT_TRUE(progress().visible());
    if (failing) fail(FailureNumber::overflow);
  }
  View& progress() { return *system_.session.system().views().find("progrsBar"); }

  struct Segment {
    double x1, y1, x2, y2;
    Colour colour;
  };
  std::vector<Segment> segments;
  int frames = 0;
  bool failing = false;

 private:
  TestSystem& system_;
};

TEST(LimitSearch, drawsTheProfileAsTwoCurves) {
  SearchSystem system;
  system.compute();
  ChartRecord chart{system};
  system.search().drawProfile(chart);
  EXPECT_EQ(chart.frames, 1);
  const RunState& state = system.state();
  EXPECT_EQ(state.profileScaleX, state.maxDistPrbt / 190);
  EXPECT_EQ(state.profileScaleY, 105.0 / 130);
  ASSERT_GT(chart.segments.size(), 1000U);
  for (std::size_t i = 0; i < chart.segments.size(); ++i) {
    const auto& segment = chart.segments[i];
    EXPECT_EQ(segment.colour, basicPalette[i % 2 == 0 ? 10 : 12]);  // injury, then fatality
    if (i < 2) {
      EXPECT_EQ(segment.x1, 10.31);
      EXPECT_EQ(segment.y1, 130);
    } else {
      EXPECT_EQ(segment.x1, chart.segments[i - 2].x2);
      EXPECT_EQ(segment.y1, chart.segments[i - 2].y2);
    }
    ASSERT_GE(segment.y2, 130 - 100 / state.profileScaleY);
    ASSERT_LE(segment.y2, 130);
  }
  // The first distance: everybody dies, nobody is only hurt.
  EXPECT_NEAR(chart.segments[0].x2, 10.31 + (system.field("bgnpt(0)").number() + 0.1) / state.profileScaleX, 1e-9);
  EXPECT_EQ(chart.segments[0].y2, 130);
  EXPECT_NEAR(chart.segments[1].y2, 130 - 100 * 130 / 105.0, 1e-9);
  EXPECT_NEAR(chart.segments.back().x2, 200.31, 190 / 1000.0);
  EXPECT_FALSE(chart.progress().visible());
  EXPECT_EQ(chart.progress().find("probrLbl")->caption(), "Plotting Fatality and Injury...Wait 100 % complete");
  EXPECT_EQ(chart.progress().find("progPic2")->backColour(), Colour::fromScreen(0x8080FF));
  for (const auto& cell : system.table()) EXPECT_EQ(cell, "0");
}

TEST(LimitSearch, closesItsProgressViewWhenItFails) {
  SearchSystem system;
  system.compute();
  ChartRecord chart{system};
  chart.failing = true;
  EXPECT_THROW(system.search().drawProfile(chart), RuntimeFailure);
  EXPECT_EQ(chart.segments.size(), 1U);
  EXPECT_FALSE(chart.progress().loaded());
}

}  // namespace
}  // namespace noldarz::test
