#include "toxic/crosswind_walk.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "platform/failure.h"
#include "support/reference.h"

namespace noldarz::test {
namespace {

using WalkFunction = std::function<void(const Walk&, LimitSearchState&)>;

const std::vector<WalkFunction>& walks() {
  static CrosswindWalk fast;
  static const std::vector<WalkFunction> both{
      walkStepByStep, [](const Walk& walk, LimitSearchState& state) { fast.walk(walk, state); }};
  return both;
}

TEST(CrosswindWalk, agreesWithTheReference) {
  const auto rows = referenceRows("walks.csv");
  EXPECT_GE(rows.size(), 50U);
  for (const auto& row : rows)
    for (const auto& walk : walks()) {
      const auto n = [&](std::size_t column) { return strictNumber(row.at(column)); };
      LimitSearchState state;
      walk({n(0), n(1), n(2), {n(3), n(4)}, {n(5), n(6)}}, state);
      EXPECT_NEAR(state.doseSum, n(7), n(7) * 1e-10);
      EXPECT_NEAR(state.pctFtl, n(8), n(8) * 1e-10) << row[0] << " ppm, " << row[2] << " m";
      EXPECT_NEAR(state.pctInj, n(9), n(9) * 1e-10) << row[0] << " ppm, " << row[2] << " m";
    }
}

/// The loop over all steps, written out with nothing of the room.
double plainPercent(double C, double A, double B, double halfEdge) {
  double sum = 0;
  double before = 0;
  for (int y = 0; y <= halfEdge; ++y) {
    sum += before;
    const double t = std::floor(y / 90.0 * 1e4 + 0.5) / 1e4;
    before = C > 0 && t > 0 ? std::max(0.0, A + 0.43429 * std::log(std::pow(C, B) * t)) : 0;
  }
  return sum > 100 ? 100 : sum < 0.9 ? 0 : sum;
}

TEST(CrosswindWalk, givesTheFiguresOfThePlainLoopForRandomClouds) {
  std::mt19937 random{7};
  std::uniform_real_distribution<double> unit{0, 1};
  CrosswindWalk fast;
  int between = 0;
  for (int i = 0; i < 4000; ++i) {
    Walk walk;
    walk.C = rounded(std::pow(10, -2 + 8 * unit(random)), 4);
    walk.M = 2 + 150 * unit(random);
    walk.halfEdge = rounded(std::pow(10, 3.4 * unit(random)), 2) / 2;
    walk.fatality = {-20 + 20 * unit(random), 0.5 + 3 * unit(random)};
    walk.injury = {walk.fatality.A + 6 * unit(random), walk.fatality.B};
    LimitSearchState state;
    fast.walk(walk, state);
    const double ftl = plainPercent(walk.C, walk.fatality.A, walk.fatality.B, walk.halfEdge);
    const double inj = plainPercent(walk.C, walk.injury.A, walk.injury.B, walk.halfEdge);
    ASSERT_NEAR(state.pctFtl, ftl, 1e-8) << i;
    ASSERT_NEAR(state.pctInj, inj, 1e-8) << i;
    LimitSearchState steps;
    walkStepByStep(walk, steps);
    ASSERT_EQ(steps.pctFtl, ftl);
    ASSERT_EQ(steps.pctInj, inj);
    // What the last step leaves is the same to the last bit.
    ASSERT_EQ(state.crossPath, steps.crossPath);
    ASSERT_EQ(state.exposureMin, steps.exposureMin);
    ASSERT_EQ(state.doseStep, steps.doseStep);
    ASSERT_EQ(state.probitFtl, steps.probitFtl);
    between += ftl > 0 && ftl < 100;
  }
  EXPECT_GT(between, 200);
}

TEST(CrosswindWalk, turnsNoFigureIntoNothingByItsLastBits) {
  // A is chosen so that the sum of the steps comes to within bits of the least percent, on either side.
  CrosswindWalk fast;
  for (int n = 3; n < 400; n += 13) {
    double low = -60, high = 60;
    for (int i = 0; i < 200; ++i) {
      const double A = (low + high) / 2;
      (plainPercent(50, A, 2, n) > 0 ? high : low) = A;
    }
    for (const double A : {low, high, std::nextafter(low, -99), std::nextafter(high, 99)}) {
      LimitSearchState state;
      fast.walk({50, 29, static_cast<double>(n), {A, 2}, {A, 2}}, state);
      EXPECT_EQ(state.pctFtl > 0, plainPercent(50, A, 2, n) > 0) << n;
    }
  }
}

TEST(CrosswindWalk, failsWhereAStepHasNoValue) {
  const Probit fine{-10, 2};
  const double huge = std::numeric_limits<double>::max();
  for (const auto& walk : walks()) {
    LimitSearchState state;
    EXPECT_THROW(walk({1000, 29, 50, {0, 300}, fine}, state), RuntimeFailure);
    EXPECT_THROW(walk({0.001, 29, 50, fine, {0, 300}}, state), RuntimeFailure);
    EXPECT_THROW(walk({1000, huge, 50, fine, fine}, state), RuntimeFailure);
    EXPECT_NO_THROW(walk({1000, 29, 1, {0, 300}, fine}, state));  // no step takes time
    EXPECT_NO_THROW(walk({1000, 29, 50, {-huge, 90}, {huge, 1}}, state));
    EXPECT_EQ(state.pctFtl, 0);
    EXPECT_EQ(state.pctInj, 100);
    walk({1000, 29, -3, fine, fine}, state);
    EXPECT_EQ(state.crossPath, 0);
  }
}

}  // namespace
}  // namespace noldarz::test
