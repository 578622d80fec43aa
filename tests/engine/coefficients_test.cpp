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

}  // namespace
}  // namespace noldarz::test
