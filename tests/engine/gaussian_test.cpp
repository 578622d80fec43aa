#include "engine/gaussian.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/failure.h"
#include "platform/text.h"
#include "support/reference.h"

namespace noldarz::test {
namespace {

TEST(Gaussian, agreesWithTheReference) {
  for (const auto& row : referenceRows("concentrations.csv")) {
    std::vector<double> n(row.size());
    for (std::size_t i = 1; i < row.size(); ++i) n[i] = strictNumber(row[i]);
    const Release release = row[0] == "PUFF" ? Release::puff : row[0] == "POOL" ? Release::pool : Release::plume;
    const Source source{release, n[1], n[2], n[4], n[5], n[6]};
    EXPECT_NEAR(axisConcentration(source, n[7], n[8], n[9]), n[10], n[10] * relativeTolerance) << row[0];
    const double temperature = n[3] + 273;
    EXPECT_NEAR(groundMaximum(source, n[11], source.H / 1.4142, temperature), n[12], n[12] * relativeTolerance);
  }
}

TEST(Gaussian, countsTheReflectionTwiceOnTheGround) {
  const Source release{Release::plume, 1, 29, 0, 0, 1};
  // Source and point on the ground: both exponentials are 1, so C = 2 K Q / (2 pi sy sz u).
  EXPECT_NEAR(axisConcentration(release, 10, 5, 300), 2 * (300.0 / 29) * 0.08205 * 1e6 / (6.28318 * 50), 1e-6);
}

TEST(HalfWidth, reachesToWhereTheProfileHasFallenToTheLevel) {
  for (const double level : {0.5, 3.0, 99.999}) {
    const double y = halfWidth(100, level, 7);
    EXPECT_NEAR(100 * std::exp(-0.5 * (y / 7) * (y / 7)), level, 1e-9);
  }
  EXPECT_EQ(halfWidth(100, 100, 7), 0);
  EXPECT_THROW(halfWidth(99, 100, 7), RuntimeFailure);
  EXPECT_THROW(halfWidth(99, 0, 7), RuntimeFailure);
}

}  // namespace
}  // namespace noldarz::test
