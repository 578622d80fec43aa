// What a user waits for while he looks at zones: lists built and painted, charts, an answer under the pointer, places
// by the million. `ratio` is the time over what it may take; a release whose clouds reach 10 km.

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "bench/measure.h"
#include "cli/at.h"
#include "cli/script.h"
#ifdef NOLDARZ_DESKTOP
#include "desktop/canvas_widget.h"
#endif

namespace {

using namespace noldarz;
using namespace noldarz::bench;

const char* const release = R"(
set scnrotypetxt PLUME
set QntyRelstxt 60
set molwttxt 70.906
set vapordnstytxt 2.45
set tempStore -34
set wndveltxt 6
set stblclscbo D
set enddisttxt 50000
click comput
enter constn(0) 200000
enter constn(1) 20000
enter constn(2) 2000
enter constn(3) 200
enter constn(4) 50
enter constn(5) 22
click comput
)";

/// The release, computed, with the plot view open.
struct Plot {
  explicit Plot(const char* output = "#3") : session([](const RecordEntry&) {}, Folders{"/", "/", "/"}) {
    run(release);
    run(std::string{"choose prntprv "} + output);
  }
  void run(const std::string& lines) {
    std::istringstream stream(lines);
    std::ostringstream errors;
    if (runScript(session, stream, "bench", errors) != ExitStatus::done) throw std::runtime_error(errors.str());
  }
  Field& field(const char* name) { return *session.system().views().find("Drwfrm")->find(name); }
  ScriptSession session;
};

#ifdef NOLDARZ_DESKTOP
/// Paints a canvas as the window does.
class Screen {
 public:
  explicit Screen(Canvas& canvas) { widget_.setCanvas(canvas, {}); }
  void paint() { benchmark::DoNotOptimize(widget_.grab().cacheKey()); }

 private:
  QApplication& application_ = bench::application();
  CanvasWidget widget_;
};

void isoplethsOnTheScreen(benchmark::State& state) {
  Plot plot;
  plot.run("click zardzone.DwgOnPic");
  Screen screen{*plot.field("Drw1").canvas()};
  measure(state, 0.050, [&] {
    plot.field("fthiznt").fire(Event::click);
    screen.paint();
  });
  state.counters["primitives"] = static_cast<double>(plot.field("Drw1").canvas()->drawing().primitives.size());
}
BENCHMARK(isoplethsOnTheScreen)
    ->Name("plot: isopleths, built and painted")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void roseOnTheScreen(benchmark::State& state) {
  Plot plot;
  plot.run("set Givnwnd(0) 40\nset Givnwnd(3) 30\nclick zardzone.DwgOnPic");
  Screen screen{*plot.field("Drw1").canvas()};
  measure(state, 0.010, [&] {
    plot.field("FtvertB").fire(Event::click);
    screen.paint();
  });
}
BENCHMARK(roseOnTheScreen)->Name("plot: rose, built and painted")->UseManualTime()->Unit(benchmark::kMillisecond);

void builtListAgain(benchmark::State& state) {
  Plot plot;
  plot.run("click zardzone.DwgOnPic\nclick Drwfrm.fthiznt");
  Screen screen{*plot.field("Drw1").canvas()};
  const auto begin = Clock::now();
  screen.paint();
  state.counters["first_ms"] = seconds(Clock::now() - begin) * 1e3;
  measure(state, 0.016, [&] { screen.paint(); });
}
BENCHMARK(builtListAgain)->Name("plot: a built list painted again")->UseManualTime()->Unit(benchmark::kMillisecond);
#endif

void chart(benchmark::State& state, const char* command, double most) {
  Plot plot{"#2"};
  measure(state, most, [&] { plot.field(command).fire(Event::click); });
}
BENCHMARK_CAPTURE(chart, concentration, "ihrprofl", 0.010)
    ->Name("plot: concentration chart")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chart, percent, "restzoom", 0.050)
    ->Name("plot: percent chart")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void hover(benchmark::State& state) {
  Plot plot{"#2"};
  Field& canvas = plot.field("Drw1");
  double x = 20;
  measure(state, 0.001, [&] {
    x = x < 180 ? x + 0.1 : 20;
    canvas.view().pointer(canvas, {.x = x, .y = 100});
  });
}
BENCHMARK(hover)->Name("plot: a hover over a chart")->UseManualTime()->Unit(benchmark::kMicrosecond);

/// A million places, from their texts to their lines.
void places(benchmark::State& state) {
  constexpr int million = 1'000'000;
  std::string list;
  for (int i = 0; i < million; ++i) list += std::to_string(i % 9000 + 1) + "," + std::to_string(i % 777) + "\n";
  const std::string script = "/tmp/noldarz-bench-at.script";
  {
    std::ofstream file(script);
    file << release;
  }
  AtRequest request;
  request.target = script;
  request.file = "-";
  request.format = ReportFormat::csv;
  measure(state, 1, [&] {
    std::istringstream in{list};
    std::ostringstream out;
    std::ostringstream errors;
    if (tellPlaces(request, in, out, errors, Folders{"/", "/", "/"}) != ExitStatus::done)
      throw std::runtime_error(errors.str());
  });
  std::remove(script.c_str());
}
BENCHMARK(places)->Name("at: a million places")->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
