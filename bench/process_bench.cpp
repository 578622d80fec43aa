// `noldarz-cli run` on the fresh example study as a whole process, from its start to the written row and the printed
// page, and `noldarz-cli plot` to its drawing. `ratio` is the median over 15 ms and 60 ms; repeated_ms is a second
// run, which finds nothing to write, start_ms the same program telling its version.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/measure.h"

namespace {

namespace fs = std::filesystem;
using noldarz::bench::Clock;
using noldarz::bench::medianOf;

constexpr double wantedSeconds = 0.015;

/// Runs the program without its output. Its time (s); the memory that it took at most comes to `memory` (KiB).
double timedProcess(std::vector<std::string> words, long* memory = nullptr) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  const auto begin = Clock::now();
  pid_t process = 0;
  const int failed = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage usage{};
  if (failed != 0 || wait4(process, &status, 0, &usage) < 0 || status != 0)
    throw std::runtime_error(words[0] + " did not run");
  if (memory) *memory = std::max(*memory, usage.ru_maxrss);
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

void runOnTheExampleStudy(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / ("noldarz-bench-" + std::to_string(getpid()));
  fs::create_directories(folder / "start");
  fs::create_directories(folder / "data");
  const fs::path fresh = folder / "fresh.mdb";
  const std::string start = (folder / "start").string();
  timedProcess(
      {NOLDARZ_CLI, "study", "create", fresh.string(), "--from", NOLDARZ_SOURCE_DIR "/examples/studies/chlorine.toml"});
  std::vector<double> runs;
  std::vector<double> repeated;
  std::vector<double> starts;
  long memory = 0;
  const std::vector<std::string> command{NOLDARZ_CLI, "run", "--levels", "1000,100,,,,0.25", start};
  for ([[maybe_unused]] auto iteration : state) {
    fs::copy_file(fresh, folder / "data/orgtn.mdb", fs::copy_options::overwrite_existing);
    runs.push_back(timedProcess(command, &memory));
    repeated.push_back(timedProcess(command));
    starts.push_back(timedProcess({NOLDARZ_CLI, "--version"}));
    state.SetIterationTime(runs.back());
  }
  fs::remove_all(folder);
  state.counters["median_ms"] = medianOf(runs) * 1e3;
  state.counters["ratio"] = medianOf(runs) / wantedSeconds;
  state.counters["repeated_ms"] = medianOf(repeated) * 1e3;
  state.counters["start_ms"] = medianOf(starts) * 1e3;
  state.counters["MiB"] = static_cast<double>(memory) / 1024;
}
void plotToSvg(benchmark::State& state) {
  constexpr double wantedOfPlot = 0.060;
  const fs::path file = fs::temp_directory_path() / ("noldarz-bench-" + std::to_string(getpid()) + ".svg");
  std::vector<double> runs;
  for ([[maybe_unused]] auto iteration : state) {
    runs.push_back(timedProcess(
        {NOLDARZ_CLI, "plot", "isopleths", "-o", file.string(), NOLDARZ_SOURCE_DIR "/examples/chlorine-hose.script"}));
    state.SetIterationTime(runs.back());
  }
  fs::remove(file);
  state.counters["median_ms"] = medianOf(runs) * 1e3;
  state.counters["ratio"] = medianOf(runs) / wantedOfPlot;
}
BENCHMARK(plotToSvg)->Name("noldarz-cli plot, process")->UseManualTime()->Iterations(50)->Unit(benchmark::kMillisecond);

BENCHMARK(runOnTheExampleStudy)
    ->Name("noldarz-cli run, process")
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMillisecond);

}  // namespace
