// How a search passes over steps at which nothing can happen and still finds, to the last digit, what it would find
// step by step. What can happen over a stretch is bounded by axis_range.h; each search says by a predicate of its own
// when it is quiet.
#pragma once

#include <algorithm>
#include <limits>

namespace noldarz {

/// How many steps a search tries to pass over at once: more after each success, fewer after each failure.
class Stride {
 public:
  /// Moves `at`, where the search stands, to the step before the next one that it takes, and tells how many steps it
  /// passed over: at most `most`, none past `limit`, and none unless isQuiet(next) holds of the stretch up to `next`.
  /// The running sum is that of the plain loop, step by step.
  template <class Quiet>
  int passOver(double& at, double step, double limit, Quiet isQuiet, int most = std::numeric_limits<int>::max()) {
    most = std::min(most, steps());
    double before = at;
    double next = at;
    int passed = 0;
    for (; passed < most && next + step <= limit; ++passed) {
      before = next;
      next += step;
    }
    if (passed < 2) return 0;
    if (!isQuiet(next)) return failed();
    steps_ = std::min(2 * steps_, greatest);
    at = before;
    return passed - 1;
  }

 private:
  /// 0: none, take the next step plainly.
  int steps() {
    if (rest_ == 0) return steps_;
    --rest_;
    return 0;
  }
  int failed() {
    steps_ /= 4;
    if (steps_ < least) {
      steps_ = least;
      rest_ = plainSteps;
    }
    return 0;
  }

  static constexpr int least = 4;
  static constexpr int greatest = 8192;
  static constexpr int plainSteps = 8;
  int steps_ = 64;
  int rest_ = 0;
};

}  // namespace noldarz
