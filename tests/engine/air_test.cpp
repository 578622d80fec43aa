#include "engine/air.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/text.h"
#include "support/reference.h"

namespace noldarz::test {
namespace {

template <std::size_t N>
int indexIn(const std::array<std::string_view, N>& words, const std::string& word) {
  const auto found = std::find(words.begin(), words.end(), word);
  return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

TEST(WindAtReleaseHeight, agreesWithTheReferenceForEveryClassAndTerrain) {
  for (const auto& row : referenceRows("wind.csv")) {
    const int stabilityClass = indexIn(stabilityClasses, row.at(0));
    const double wind = strictNumber(row.at(3));
    const double expected = strictNumber(row.at(4));
    EXPECT_NEAR(windAtReleaseHeight(wind, strictNumber(row[2]), stabilityClass, indexIn(terrains, row[1])),
                expected,
                expected * relativeTolerance)
        << row[0] << ' ' << row[1] << ' ' << row[2];
  }
}

TEST(WindAtReleaseHeight, isTheWindItselfAtTenMetres) {
  for (int terrain = -1; terrain < 5; ++terrain) EXPECT_NEAR(windAtReleaseHeight(3.7, 10, 0, terrain), 3.7, 1e-14);
  for (int stabilityClass = noClass; stabilityClass <= customClass; ++stabilityClass)
    EXPECT_NEAR(windAtReleaseHeight(3.7, std::nextafter(10, 11), stabilityClass, 0), 3.7, 1e-14);
}

TEST(WindAtReleaseHeight, hasNoValueBelowTheGround) {
  EXPECT_THROW(windAtReleaseHeight(3, -1, 0, 0), RuntimeFailure);
  EXPECT_EQ(windAtReleaseHeight(3, 0, 0, 0), 0);
}

}  // namespace
}  // namespace noldarz::test
