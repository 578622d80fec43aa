// The two presses of Compute on four reference releases, each and both, against a bare loop in the same run: the
// printed formulas, evaluated on plain numbers as many times as the press is told to step. `ratio` is press over bare
// loop.
//
// A step of the bare loop is the coefficients and the concentration; in the first press the candidate of the maximum
// ground concentration comes to it, in the width pass of the second one the half width, as in the steps of the press.
// The limit search of the close-out, 200 to 400 us behind a finished run, is in the press and not in the bare loop;
// limit_bench.cpp measures it.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "cli/script.h"

namespace {

using namespace noldarz;
using Clock = std::chrono::steady_clock;

double seconds(Clock::duration duration) { return std::chrono::duration<double>(duration).count(); }

/// A power or logarithmic curve of the model, written out: factor * x^exponent or 10^(q L^2 + l L + c).
struct Vertical {
  double breakpoint;  // m
  double factor, exponent;
  double q, l, c;
};

struct Reference {
  const char* name;
  std::map<std::string, std::string> fields;
  std::vector<std::string> levels;
  Vertical vertical;
  double lateralFactor, lateralExponent;
  bool puff;
};

constexpr Vertical classD{368.653, 0.093, 0.85, -0.061, 1.08, -1.22};
constexpr Vertical classF{588.084, 0.057, 0.8, -0.119, 1.37, -1.91};

const std::vector<Reference> references{
    {"near-ground D",
     {{"scnrotypetxt", "PLUME"},
      {"QntyRelstxt", "5"},
      {"molwttxt", "70.906"},
      {"vapordnstytxt", "2.45"},
      {"tempStore", "-34"},
      {"htreltxt", "1"},
      {"htsmul", "1.5"},
      {"wndveltxt", "6"},
      {"stblclscbo", "D"},
      {"enddisttxt", "10000"}},
     {"20000", "5000", "500", "100", "20", "10"},
     classD,
     0.128,
     0.9,
     false},
    {"100 m stack F",
     {{"scnrotypetxt", "PLUME"},
      {"QntyRelstxt", "50"},
      {"molwttxt", "64.06"},
      {"vapordnstytxt", "1"},
      {"tempStore", "27"},
      {"htreltxt", "100"},
      {"htsmul", "0"},
      {"wndveltxt", "3"},
      {"stblclscbo", "F"},
      {"enddisttxt", "50000"}},
     {"7.5", "7.4", "7.3", "7.2", "7.1", "7"},
     classF,
     0.067,
     0.9,
     false},
    {"PUFF",
     {{"scnrotypetxt", "PUFF"},
      {"QntyRelstxt", "500"},
      {"molwttxt", "17.031"},
      {"vapordnstytxt", "1"},
      {"tempStore", "27"},
      {"htreltxt", "10"},
      {"htsmul", "1.5"},
      {"wndveltxt", "6"},
      {"stblclscbo", "D"},
      {"enddisttxt", "10000"}},
     {"10000", "5000", "1000", "500", "100", "25"},
     classD,
     0.128,
     0.9,
     true},
    {"POOL urban F",
     {{"scnrotypetxt", "POOL"},
      {"QntyRelstxt", "2"},
      {"molwttxt", "44.11"},
      {"vapordnstytxt", "1.52"},
      {"tempStore", "-42"},
      {"htreltxt", "1"},
      {"htsmul", "1"},
      {"wndveltxt", "3"},
      {"stblclscbo", "F"},
      {"roghwndoptcbo", "Urban"},
      {"enddisttxt", "10000"}},
     {"95000", "21000", "5000", "1000", "500", "100"},
     classF,
     0.067,
     0.9,
     false},
};

/// The numbers of a release in hand.
struct Numbers {
  explicit Numbers(const Reference& reference, double wind)
      : Q(number(reference, "QntyRelstxt")),
        M(number(reference, "molwttxt")),
        Tc(number(reference, "tempStore")),
        H(number(reference, "htreltxt")),
        z(number(reference, "htsmul")),
        density(number(reference, "vapordnstytxt")),
        u(wind) {}
  static double number(const Reference& reference, const char* field) {
    return strictNumber(reference.fields.at(field));
  }
  double Q, M, Tc, H, z, density, u;
};

struct Bare {
  const Reference& reference;
  Numbers n;

  double sz(double x) const {
    const Vertical& v = reference.vertical;
    const double L = std::log(x) / std::log(10.0);
    double sigma = x < v.breakpoint ? v.factor * std::pow(x, v.exponent) : std::pow(10.0, v.q * L * L + v.l * L + v.c);
    if (n.density > 1.5 && x <= 80) sigma *= x * 0.01 + 0.2;
    return sigma;
  }
  double sy(double x) const { return reference.lateralFactor * std::pow(x, reference.lateralExponent); }
  double concentration(double sigmaY, double sigmaZ) const {
    const double R =
        std::exp(-0.5 * std::pow((n.z + n.H) / sigmaZ, 2)) + std::exp(-0.5 * std::pow((n.H - n.z) / sigmaZ, 2));
    const double Y = std::exp(-0.5 * std::pow(0.00001 / sigmaY, 2));
    const double K = (300 / n.M) * 0.08205 * 1000;
    const double spread =
        reference.puff ? std::pow(6.28318, 1.5) * sigmaY * sigmaY * sigmaZ : 6.28318 * sigmaY * sigmaZ * n.u;
    return K * R * Y * (n.Q * 1000) / spread;
  }
  double groundMaximum(double sigmaY) const {
    const double S = n.H / 1.4142;
    const double K = 0.08205 * ((n.Tc + 273) / n.M) * 1000;
    if (!reference.puff) return ((n.Q + n.Q) * 1000) / (n.H * n.H * (n.u * 8.55118538)) * (S / sigmaY) * K;
    return (n.Q * 1000) / (std::pow(6.28318, 1.5) * sigmaY * sigmaY * S) * std::exp(-0.5 * std::pow(n.H / S, 2)) * K;
  }
};

double bareFirstPress(const Bare& bare, std::uint64_t steps) {
  double sum = 0;
  double x = 2;
  for (std::uint64_t i = 0; i < steps; ++i, x += 0.5) {
    const double sy = bare.sy(x);
    sum += bare.concentration(sy, bare.sz(x)) + bare.groundMaximum(sy);
  }
  return sum;
}

double bareSecondPress(const Bare& bare, std::uint64_t steps, std::uint64_t widthSteps) {
  double sum = 0;
  double x = 2;
  for (std::uint64_t i = 0; i < steps; ++i, x += 0.5) {
    const double sy = bare.sy(x);
    const double C = bare.concentration(sy, bare.sz(x));
    sum += i < widthSteps ? std::sqrt(2 * std::log(C / 1e-9)) * sy : C;
  }
  return sum;
}

struct Press {
  double seconds = 0;
  std::uint64_t steps = 0;
};

Press timedPress(ScriptSession& session) {
  Field& comput = session.system().mainView().command.comput;
  const std::uint64_t before = session.system().engine().progress.stepCount();
  const auto begin = Clock::now();
  comput.fire(Event::click);
  return {seconds(Clock::now() - begin), session.system().engine().progress.stepCount() - before};
}

/// Steps of the width pass, which goes on by 1 m from the peak to the greatest width of the lowest level.
std::uint64_t widthSteps(const MainView& main) {
  return static_cast<std::uint64_t>(main.level.distmaxisop[levelCount - 1].number() -
                                    main.result.maxdistconctxt.number());
}

enum class Part { firstPress, secondPress, whole };

/// A press of a fresh program, or both.
void pressAgainstBareLoop(benchmark::State& state, const Reference& reference, Part part) {
  double pressSeconds = 0;
  double bareSeconds = 0;
  std::uint64_t steps = 0;
  for ([[maybe_unused]] auto iteration : state) {
    ScriptSession session{[](const RecordEntry&) {}};
    MainView& main = session.system().mainView();
    for (const auto& [name, text] : reference.fields) main.view.find(name)->setText(text);
    const Press first = timedPress(session);
    Press second;
    if (part != Part::firstPress) {
      for (int i = 0; i < levelCount; ++i) main.level.constn[i].setText(reference.levels[static_cast<std::size_t>(i)]);
      second = timedPress(session);
      if (!main.level.distmaxisop[levelCount - 1].isNumeric())
        return state.SkipWithError("the lowest level is not complete");
    }
    const auto begin = Clock::now();
    const Bare bare{reference, Numbers{reference, session.system().state().windAtHeight}};
    if (part != Part::secondPress) benchmark::DoNotOptimize(bareFirstPress(bare, first.steps));
    if (part != Part::firstPress) benchmark::DoNotOptimize(bareSecondPress(bare, second.steps, widthSteps(main)));
    bareSeconds += seconds(Clock::now() - begin);
    const double taken = (part != Part::secondPress ? first.seconds : 0) + second.seconds;
    pressSeconds += taken;
    steps = (part != Part::secondPress ? first.steps : 0) + second.steps;
    state.SetIterationTime(taken);
  }
  state.counters["steps"] = static_cast<double>(steps);
  state.counters["bare_us"] = benchmark::Counter(bareSeconds * 1e6, benchmark::Counter::kAvgIterations);
  state.counters["ratio"] = pressSeconds / bareSeconds;
}

}  // namespace

int main(int argc, char** argv) {
  for (const Reference& reference : references)
    for (const auto& [part, name] : {std::pair{Part::firstPress, ", first press"},
                                     std::pair{Part::secondPress, ", second press"},
                                     std::pair{Part::whole, ", whole Compute"}})
      benchmark::RegisterBenchmark(
          (std::string{reference.name} + name).c_str(),
          [&reference, part](benchmark::State& state) { pressAgainstBareLoop(state, reference, part); })
          ->UseManualTime()
          ->Unit(benchmark::kMicrosecond);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
