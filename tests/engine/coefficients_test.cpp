#include "engine/coefficients.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "engine/air.h"
#include "platform/text.h"
#include "support/reference.h"

namespace noldarz::test {
namespace {

double verticalAfterDensity(int stabilityClass, double density, double distance) {
  if (density < 1) return sigmaZLighterThanAir(stabilityClass, distance);
  return heavyGasFactor(density, distance) * sigmaZFromClass(stabilityClass, distance);
}

TEST(Coefficients, agreeWithTheReferenceForEveryClassAndDensity) {
  for (const auto& row : referenceRows("coefficients.csv")) {
    const auto found = std::find(stabilityClasses.begin(), stabilityClasses.end(), row.at(0));
    ASSERT_NE(found, stabilityClasses.end());
    const int stabilityClass = static_cast<int>(found - stabilityClasses.begin());
    const double density = strictNumber(row.at(1));
    const double x = strictNumber(row.at(2));
    const double figures[] = {sigmaZFromClass(stabilityClass, x),
                              verticalAfterDensity(stabilityClass, density, x),
                              sigmaYFromClass(stabilityClass, x)};
    for (std::size_t i = 0; i < 3; ++i) {
      const double expected = strictNumber(row.at(3 + i));
      EXPECT_NEAR(figures[i], expected, expected * relativeTolerance)
          << row[0] << " density " << row[1] << " at " << row[2] << " m, column " << 3 + i;
    }
  }
}

TEST(Coefficients, atTheSourceAreZeroOrNoNumber) {
  for (int stabilityClass = 0; stabilityClass <= customClass; ++stabilityClass) {
    EXPECT_EQ(sigmaYFromClass(stabilityClass, 0), 0.0);
    if (stabilityClasses.at(static_cast<std::size_t>(stabilityClass)) == "DE")
      EXPECT_TRUE(std::isnan(sigmaZFromClass(stabilityClass, 0)));
    else
      EXPECT_EQ(sigmaZFromClass(stabilityClass, 0), 0.0);
    EXPECT_TRUE(std::isnan(sigmaYFromClass(stabilityClass, -1)));
    EXPECT_TRUE(std::isnan(sigmaZFromClass(stabilityClass, -1)));
    EXPECT_TRUE(std::isnan(sigmaZLighterThanAir(stabilityClass, -1)));
  }
}

TEST(Coefficients, formsMeetAtTheBreakpoint) {
  const struct {
    int stabilityClass;
    double breakpoint;
  } cases[] = {{0, 289.614},
               {1, 303.121},
               {3, 424.504},
               {5, 368.652},
               {6, 368.653},
               {8, 366.919},
               {9, 410.429},
               {10, 588.084},
               {11, 289.614}};
  for (const auto& [stabilityClass, breakpoint] : cases) {
    const double below = sigmaZFromClass(stabilityClass, std::nextafter(breakpoint, 0));
    const double at = sigmaZFromClass(stabilityClass, breakpoint);
    EXPECT_NEAR(at / below, 1, 1e-5);
    EXPECT_NE(at, below) << "the other form applies at the breakpoint itself";
  }
}

TEST(HeavyGasFactor, joinsTheClassTableAtTheLimitOfItsBand) {
  const struct {
    double density, distance, factor;
  } cases[] = {{1, 2, 1},
               {1.01, 2, 0.42},
               {1.5, 2, 0.42},
               {1.5, 60, 1.0},
               {1.5, 60.01, 1},
               {1.5, 61, 1},
               {1.51, 2, 0.22},
               {1.6, 80, 1.0},
               {1.6, 80.01, 1},
               {2.5, 30, 0.5}};
  for (const auto& [density, distance, factor] : cases)
    EXPECT_NEAR(heavyGasFactor(density, distance), factor, 1e-15) << density << " at " << distance;
}

}  // namespace
}  // namespace noldarz::test
