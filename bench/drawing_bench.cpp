// A drawing of 100 MB read, its zones spliced in, and saved, against a plain copy of the file by the same durable
// write. `ratio` is the time over three times that of the copy; of_copy is the bare quotient.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <vector>

#include "bench/measure.h"
#include "platform/cad/dxf_writer.h"
#include "platform/durable_file.h"
#include "platform/input_file.h"

namespace {

using namespace noldarz;
namespace fs = std::filesystem;
using bench::Clock;
using bench::medianOf;
using bench::seconds;

/// The empty drawing with so many lines in it.
void writeLargeDrawing(const fs::path& file, int lines) {
  std::ifstream stream(NOLDARZ_SOURCE_DIR "/share/AutoCadVBA/AutocadDwg1.dwg", std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(stream), {}};
  const DxfFile empty{text, "empty"};
  std::string records;
  for (int i = 0; i < lines; ++i)
    fmt::format_to(
        std::back_inserter(records),
        "  0\nLINE\n  5\n{:X}\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n{:.6f}\n 20\n{:.6f}\n 30\n0.0\n"
        " 11\n{:.6f}\n 21\n{:.6f}\n 31\n0.0\n",
        0x1000 + i,
        1.1 * i,
        2.3 * i,
        0.7 * i,
        0.1 * i);
  replaceFile(file, text.insert(*empty.places().entitiesEnd, records));
}

double secondsOf(const std::function<void()>& work) {
  const auto begin = Clock::now();
  work();
  return seconds(Clock::now() - begin);
}

void spliced(benchmark::State& state) {
  constexpr int lines = 700'000;
  constexpr double mostCopies = 3;
  const fs::path folder = fs::temp_directory_path() / ("noldarz-bench-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const fs::path file = folder / "large.dxf";
  writeLargeDrawing(file, lines);
  const std::vector<CadPoint> fit{{0, 0, 0}, {500, 100, 0}, {900, 0, 0}, {500, -100, 0}, {0, 0, 0}};
  const std::vector<ChangedLayer> layers{{"Zone", 1}};
  const std::deque<AddedEntity> zone(6, {"Zone", 256, AddedSpline{Spline{fit}, fit, 0}});
  std::vector<double> copies;
  std::vector<double> runs;
  for ([[maybe_unused]] auto iteration : state) {
    copies.push_back(secondsOf([&] { replaceFile(folder / "copy.dxf", *InputFile{file}.bytes(DxfFile::mostBytes)); }));
    runs.push_back(secondsOf([&] {
      const DxfFile drawing = DxfFile::read(file);
      DxfPieces{drawing, layers, zone}.write(folder / "saved.dxf");
    }));
    state.SetIterationTime(runs.back());
  }
  state.counters["MB"] = static_cast<double>(fs::file_size(file)) / 1e6;
  fs::remove_all(folder);
  state.counters["copy_ms"] = medianOf(copies) * 1e3;
  state.counters["of_copy"] = medianOf(runs) / medianOf(copies);
  state.counters["ratio"] = medianOf(runs) / medianOf(copies) / mostCopies;
}
BENCHMARK(spliced)
    ->Name("drawing: 100 MB read, spliced and saved")
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

}  // namespace
