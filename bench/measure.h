// What benchmarks share: times against what they may be, and an application without a screen.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

#ifdef NOLDARZ_DESKTOP
#include <QApplication>

#include "desktop/vector_state.h"
#endif

namespace noldarz::bench {

using Clock = std::chrono::steady_clock;

inline double seconds(Clock::duration duration) { return std::chrono::duration<double>(duration).count(); }

inline double medianOf(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
  return values[values.size() / 2];
}

/// Does the work over and over; its mean time over `mostSeconds` is the ratio.
inline void measure(benchmark::State& state, double mostSeconds, const std::function<void()>& work) {
  double total = 0;
  for ([[maybe_unused]] auto iteration : state) {
#ifdef NOLDARZ_DESKTOP
    clearVectorState();  // as the window does before it computes
#endif
    const auto begin = Clock::now();
    work();
    const double time = seconds(Clock::now() - begin);
    total += time;
    state.SetIterationTime(time);
  }
  state.counters["ratio"] = total / static_cast<double>(state.iterations()) / mostSeconds;
}

#ifdef NOLDARZ_DESKTOP
inline QApplication& application() {
  static int count = 3;
  static char name[] = "bench";
  static char option[] = "-platform";
  static char platform[] = "offscreen";
  static char* words[] = {name, option, platform, nullptr};
  static QApplication application(count, words);
  return application;
}
#endif

}  // namespace noldarz::bench
