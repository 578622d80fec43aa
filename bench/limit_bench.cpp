// The limit search behind a cloud whose level 4 is 4 km wide, against the plain loop in the same run: every step of every
// walk, one after the other, on plain numbers. `ratio` is search over plain loop; `hoisted` is the same against a loop that
// raises the concentration to its power once a distance.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <string>

#include "cli/script.h"
#include "engine/air.h"
#include "engine/coefficients.h"
#include "engine/gaussian.h"

namespace {

using namespace noldarz;
using Clock = std::chrono::steady_clock;

double seconds(Clock::duration duration) { return std::chrono::duration<double>(duration).count(); }

const std::map<std::string, std::string> release{{"scnrotypetxt", "PLUME"},
                                                 {"QntyRelstxt", "1800"},
                                                 {"molwttxt", "57.05"},
                                                 {"vapordnstytxt", "1.97"},
                                                 {"tempStore", "39"},
                                                 {"htreltxt", "1"},
                                                 {"htsmul", "1.5"},
                                                 {"wndveltxt", "4"},
                                                 {"stblclscbo", "B"},
                                                 {"enddisttxt", "50000"},
                                                 {"avalftl", "-1.23"},
                                                 {"nvalftl", "0.7"},
                                                 {"avalinj", "1.35"},
                                                 {"nvalinj", "0.7"}};
const char* const levels[] = {"20000", "5000", "500", "100", "20", "10"};

/// The program behind both presses.
void compute(ScriptSession& session) {
  MainView& main = session.system().mainView();
  main.in.prbtoptn.setValue(0);
  for (const auto& [name, text] : release) main.view.find(name)->setText(text);
  main.command.comput.fire(Event::click);
  for (int i = 0; i < levelCount; ++i) main.level.constn[i].setText(levels[i]);
  main.command.comput.fire(Event::click);
}

struct Limits {
  double fatality = 0;
  double injury = 0;
};

/// What the walk takes of a release, as plain numbers.
struct Plain {
  explicit Plain(System& system) {
    const MainView& main = system.mainView();
    const ScenarioInputs& in = main.in;
    source = {Release::plume,
              in.QntyRelstxt.number(),
              in.molwttxt.number(),
              in.htreltxt.number(),
              in.htsmul.number(),
              system.state().windAtHeight};
    density = in.vapordnstytxt.number();
    A[0] = in.avalftl.number(), A[1] = in.avalinj.number();
    B[0] = in.nvalftl.number(), B[1] = in.nvalinj.number();
    begin = rounded(main.level.bgnpt[0].number() + 0.1, 2);
    end = main.level.endpt[5].number();
    halfEdge = main.level.isopwdth[4].number() / 2;
    stabilityClass = in.stblclscbo.wordIndex(stabilityClasses);
  }

  double concentration(double x) const {
    const double sz = sigmaZFromClass(stabilityClass, x) * heavyGasFactor(density, x);
    return axisConcentration(source, sigmaYFromClass(stabilityClass, x), sz, isoplethTemperature);
  }

  /// Sums of the walk at a concentration.
  void walk(double C, bool hoisted, double& dose, double* percent) const {
    double before[2] = {0, 0};
    double doseBefore = 0;
    percent[0] = percent[1] = dose = 0;
    const double raised[2] = {std::pow(C, B[0]), std::pow(C, B[1])};
    for (double y = 0; y <= halfEdge; y += 1) {  // NOLINT(clang-analyzer-security.FloatLoopCounter)
      dose += doseBefore;
      const double t = std::floor(y / 90 * 1e4 + 0.5) / 1e4;
      doseBefore = (source.M * C / 24.75) * (t * 0.001) / 60;
      for (int i = 0; i < 2; ++i) {
        percent[i] += before[i];
        const double power = hoisted ? raised[i] : std::pow(C, B[i]);
        before[i] = C > 0 && t > 0 ? std::max(0.0, A[i] + 0.43429 * std::log(power * t)) : 0;
      }
    }
  }

  Limits search(bool hoisted) const {
    Limits limits;
    double doses = 0;
    const double step = end <= 1000 ? 1 : std::floor(end / 1000 + 0.5);
    for (double x = begin; x <= end;) {  // NOLINT(clang-analyzer-security.FloatLoopCounter)
      const double C = std::floor(concentration(x) * 1e4 + 0.5) / 1e4;
      double dose = 0;
      double percent[2];
      walk(C, hoisted, dose, percent);
      doses += dose;
      x += step;
      if (percent[0] >= 0.9) limits.fatality = x + step;
      if (percent[1] >= 0.9) limits.injury = x + step;
    }
    benchmark::DoNotOptimize(doses);
    return limits;
  }

  Source source;
  double density;
  double A[2];
  double B[2];
  double begin, end, halfEdge;
  int stabilityClass;
};

/// Time of a plain loop, or -1 when it finds other limits.
double timePlain(const Plain& plain, bool hoisted, const RunState& found) {
  const auto begin = Clock::now();
  const Limits limits = plain.search(hoisted);
  const double time = seconds(Clock::now() - begin);
  const bool same = std::fabs(limits.fatality - found.ftlLimitRaw) < 1e-6 &&
                    std::fabs(limits.injury - found.injLimitRaw) < 1e-6 && found.ftlLimitRaw > 0;
  return same ? time : -1;
}

void limitSearch(benchmark::State& state) {
  ScriptSession session{[](const Json&) {}};
  compute(session);
  System& system = session.system();
  const Plain plain{system};
  double searchSeconds = 0;
  double plainSeconds = 0;
  double hoistedSeconds = 0;
  for ([[maybe_unused]] auto iteration : state) {
    const auto begin = Clock::now();
    system.limitSearch().findLimits();
    const double time = seconds(Clock::now() - begin);
    const double plainTime = timePlain(plain, false, system.state());
    const double hoistedTime = timePlain(plain, true, system.state());
    if (plainTime < 0 || hoistedTime < 0) return state.SkipWithError("the plain loop finds other limits");
    searchSeconds += time;
    plainSeconds += plainTime;
    hoistedSeconds += hoistedTime;
    state.SetIterationTime(time);
  }
  state.counters["width_m"] = 2 * plain.halfEdge;
  state.counters["plain_us"] = benchmark::Counter(plainSeconds * 1e6, benchmark::Counter::kAvgIterations);
  state.counters["ratio"] = searchSeconds / plainSeconds;
  state.counters["hoisted"] = searchSeconds / hoistedSeconds;
}

BENCHMARK(limitSearch)->Name("limit search, 4 km wide")->UseManualTime()->Iterations(20)->Unit(benchmark::kMicrosecond);

}  // namespace
