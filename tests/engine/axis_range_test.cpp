#include "engine/axis_range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/air.h"
#include "engine/coefficients.h"

namespace noldarz::test {
namespace {

struct Cloud {
  Source source;
  int stabilityClass;
  double density;

  double sigmaY(double x) const { return sigmaYFromClass(stabilityClass, x); }
  double sigmaZ(double x) const {
    if (density < 1) return sigmaZLighterThanAir(stabilityClass, x);
    return heavyGasFactor(density, x) * sigmaZFromClass(stabilityClass, x);
  }
  double conc(double x) const { return axisConcentration(source, sigmaY(x), sigmaZ(x), isoplethTemperature); }
  std::optional<AxisRange> over(double from, double to) const {
    return axisRange(source, stabilityClass, density, isoplethTemperature, from, to);
  }
};

TEST(AxisRange, boundsWhatTheCloudDoesBetweenItsEnds) {
  std::mt19937 random{7};
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>{low, high}(random);
  };
  int bounded = 0;
  int widening = 0;
  for (int i = 0; i < 4000; ++i) {
    const Cloud cloud{{static_cast<Release>(i % 3), 5, 50, std::exp(between(-2, 5)), between(0, 20), 4},
                      i % static_cast<int>(stabilityClasses.size()),
                      between(0.4, 3.5)};
    const double from = std::exp(between(0.7, 11));
    const double to = from * std::exp(between(0.0001, 0.7));
    const auto range = cloud.over(from, to);
    if (!range) continue;
    ++bounded;
    // Levels down from a ten-thousandth below what the axis holds at least.
    const double level = range->low * (1 - std::exp(between(-9.2, -0.1)));
    const bool widens = level > 0 && range->widens(level);
    widening += widens ? 1 : 0;
    double widthBefore = 0;
    double before = 0;
    for (int k = 0; k <= 20; ++k) {
      const double x = from + (to - from) * k / 20;
      const double conc = cloud.conc(x);
      EXPECT_GE(conc, range->low * (1 - AxisRange::margin));
      EXPECT_LE(conc, range->high * (1 + AxisRange::margin));
      EXPECT_LE(cloud.sigmaZ(x), range->sigmaZ.high * (1 + AxisRange::margin));
      EXPECT_GE(cloud.sigmaY(x), range->sigmaY.low * (1 - AxisRange::margin));
      EXPECT_TRUE(!range->rises() || conc > before) << conc;
      before = conc;
      if (!widens) continue;
      const double width = halfWidth(conc, level, cloud.sigmaY(x));
      EXPECT_GT(width, widthBefore) << x;
      widthBefore = width;
    }
  }
  EXPECT_GT(bounded, 2000);
  EXPECT_GT(widening, 200);
}

TEST(AxisRange, isNoneOverABreakpointAndWithoutMassOrWind) {
  const Cloud cloud{{Release::plume, 5, 50, 1, 1.5, 4}, 6, 2};
  EXPECT_TRUE(cloud.over(100, 300));
  // Class D changes its form at 368.653 m, which belongs to the second one; the density band ends at 80 m.
  EXPECT_FALSE(cloud.over(300, 400));
  EXPECT_FALSE(cloud.over(300, 368.653));
  EXPECT_TRUE(cloud.over(300, 368.652));
  EXPECT_TRUE(cloud.over(368.653, 400));
  EXPECT_FALSE(cloud.over(70, 90));
  for (double Source::*missing : {&Source::Q, &Source::M, &Source::u}) {
    Cloud without = cloud;
    without.source.*missing = 0;
    EXPECT_FALSE(without.over(100, 300));
  }
}

}  // namespace
}  // namespace noldarz::test
