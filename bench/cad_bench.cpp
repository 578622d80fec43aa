// What a user waits for in the window of a drawing of a hundred thousand lines. `ratio` is the time over what it may
// take.

#include "bench/measure.h"

#ifdef NOLDARZ_DESKTOP
#include <cmath>
#include <string>

#include "desktop/cad_canvas.h"

namespace {

using namespace noldarz;
using noldarz::bench::measure;

constexpr int lines = 100'000;

/// Lines of a few metres all over ten kilometres, on many layers.
std::string drawingText() {
  std::string text = "0\nSECTION\n2\nENTITIES\n";
  const auto number = [&](int code, double value) {
    text += std::to_string(code) + "\n" + std::to_string(value) + "\n";
  };
  for (int i = 0; i < lines; ++i) {
    const double x = 500'000 + std::fmod(i * 7919.31, 10'000);
    const double y = 4'000'000 + std::fmod(i * 104.729, 10'000);
    text += "0\nLINE\n8\nL" + std::to_string(i % 20) + "\n62\n" + std::to_string(i % 250 + 1) + "\n";
    number(10, x);
    number(20, y);
    number(11, x + 90 * std::sin(i));
    number(21, y + 90 * std::cos(i));
  }
  return text + "0\nENDSEC\n0\nEOF\n";
}

struct Shown {
  Shown() { canvas.resize(1600, 1000), canvas.fit(), whole(); }
  void paint() { benchmark::DoNotOptimize(canvas.grab().cacheKey()); }
  /// Until nothing is left to be painted.
  void whole() {
    do paint();
    while (!canvas.isPainted());
  }
  QApplication& application = noldarz::bench::application();
  Scene scene = sceneOf(DxfFile{drawingText(), "bench"});
  CadCanvas canvas{scene};
};

void opened(benchmark::State& state) {
  const DxfFile file{drawingText(), "bench"};
  measure(state, 0.2, [&] { benchmark::DoNotOptimize(SceneIndex{sceneOf(file)}.size()); });
}
BENCHMARK(opened)->Name("cad: scene of 100,000 lines")->UseManualTime()->Unit(benchmark::kMillisecond);

void painted(benchmark::State& state) {
  Shown shown;
  measure(state, 0.2, [&] {
    shown.canvas.follow();
    shown.whole();
  });
}
BENCHMARK(painted)->Name("cad: the whole painted")->UseManualTime()->Unit(benchmark::kMillisecond);

void panned(benchmark::State& state) {
  Shown shown;
  int way = 1;
  measure(state, 0.016, [&] {
    shown.canvas.pan({16 * way, 9});
    shown.paint();
    way = -way;
  });
}
BENCHMARK(panned)->Name("cad: a step of a pan")->UseManualTime()->Unit(benchmark::kMillisecond);

void zoomed(benchmark::State& state) {
  Shown shown;
  int step = 0;
  measure(state, 0.05, [&] {
    shown.canvas.zoom(step++ % 8 < 4 ? 1.25 : 0.8);
    shown.paint();  // scaled where the time is up
  });
}
BENCHMARK(zoomed)->Name("cad: a step of a zoom")->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
#endif
