// The limit search behind a cloud whose level 4 is 4 km wide, against the plain loop in the same run: every step of
// every walk, one after the other, on plain numbers. `ratio` is search over plain loop, which raises the concentration
// to its power once a distance; `unhoisted` is the same against a loop that does so at every step, as the formula is
// written.
//
// The search keeps the sums over the times from the presses before; `cold_us` is what working them out costs the first
// one. No press runs, so the progress goes to the view of the chart, whose text costs more than that of the wait view.

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

/// Raw limits, and what the walk at the last distance leaves.
struct Limits {
  double fatality = 0;
  double injury = 0;
  double dose = 0;
  double percent[2] = {0, 0};
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
    const double step = end <= 1000 ? 1 : std::floor(end / 1000 + 0.5);
    for (double x = begin; x <= end;) {  // NOLINT(clang-analyzer-security.FloatLoopCounter)
      const double C = std::floor(concentration(x) * 1e4 + 0.5) / 1e4;
      walk(C, hoisted, limits.dose, limits.percent);
      x += step;
      if (limits.percent[0] >= 0.9) limits.fatality = x + step;
      if (limits.percent[1] >= 0.9) limits.injury = x + step;
    }
    return limits;
  }

  Source source;
  double density;
  double A[2];
  double B[2];
  double begin, end, halfEdge;
  int stabilityClass;
};

bool near(double a, double b) { return std::fabs(a - b) <= 1e-9 * std::max(std::fabs(a), std::fabs(b)); }

double clamped(double percent) { return percent < 0.9 ? 0 : std::min(percent, 100.0); }

/// Time of a plain loop, or -1 when it finds something else.
double timePlain(const Plain& plain, bool hoisted, const RunState& found) {
  const auto begin = Clock::now();
  const Limits limits = plain.search(hoisted);
  const double time = seconds(Clock::now() - begin);
  const bool same = near(limits.fatality, found.ftlLimitRaw) && near(limits.injury, found.injLimitRaw) &&
                    near(limits.dose, found.doseSum) && near(clamped(limits.percent[1]), found.pctInj) &&
                    found.ftlLimitRaw > 0;
  return same ? time : -1;
}

void limitSearch(benchmark::State& state) {
  ScriptSession session{[](const RecordEntry&) {}};
  compute(session);
  System& system = session.system();
  const Plain plain{system};
  LimitSearchState coldState;
  double searchSeconds = 0;
  double plainSeconds = 0;
  double hoistedSeconds = 0;
  for ([[maybe_unused]] auto iteration : state) {
    const auto begin = Clock::now();
    system.toxic().limitSearch.findLimits();
    const double time = seconds(Clock::now() - begin);
    const double plainTime = timePlain(plain, false, system.state());
    const double hoistedTime = timePlain(plain, true, system.state());
    if (plainTime < 0 || hoistedTime < 0) return state.SkipWithError("the plain loop finds something else");
    searchSeconds += time;
    plainSeconds += plainTime;
    hoistedSeconds += hoistedTime;
    state.SetIterationTime(time);
  }
  const auto begin = Clock::now();
  CrosswindWalk{}.walk({1, plain.source.M, plain.halfEdge, {0, 1}, {0, 1}}, coldState);
  state.counters["cold_us"] = seconds(Clock::now() - begin) * 1e6;
  state.counters["width_m"] = 2 * plain.halfEdge;
  state.counters["plain_us"] = benchmark::Counter(hoistedSeconds * 1e6, benchmark::Counter::kAvgIterations);
  state.counters["ratio"] = searchSeconds / hoistedSeconds;
  state.counters["unhoisted"] = searchSeconds / plainSeconds;
}

BENCHMARK(limitSearch)->Name("limit search, 4 km wide")->UseManualTime()->Iterations(20)->Unit(benchmark::kMicrosecond);

}  // namespace
