// Densities from other units, and people from densities, against figures that were worked out apart.

#include "population/grid.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "population/grid_table.h"

namespace noldarz::test {
namespace {

TEST(Grid, convertsHeadCountsByTheWholeRing) {
  const double densities[] = {
      9.823847160195951, 3.2746157200653174, 1.9647694320391904, 1.4034067371708503, 1.0915385733551057};
  for (int band = 0; band < gridBands; ++band)
    EXPECT_NEAR(densityFrom(densityUnits.front(), 12345, band), densities[band], 1e-12) << band;
  EXPECT_THROW(densityFrom(densityUnits[2], 1e305, 0), RuntimeFailure);
}

TEST(Grid, countsPeopleByEighthsOfRings) {
  DensityGrid grid{};
  grid.fill(2);
  constexpr double discOfTenKilometres = 314.159 * 100;  // Ha
  EXPECT_NEAR(peopleWithin(grid)[4], 2 * discOfTenKilometres, 1e-6);
  grid.fill(0);
  grid[static_cast<std::size_t>(cellIndex(7, 1))] = 10;
  EXPECT_EQ(peopleWithin(grid)[0], 0);
  EXPECT_NEAR(peopleWithin(grid)[1], 10 * 37.69908 * 100 / 8, 1e-6);
}

TEST(Grid, readsCellsOfASpreadsheet) {
  using Rows = std::vector<std::vector<std::string>>;
  const struct {
    const char* text;
    Rows cells;
  } cases[] = {{"1\t2\r\n3\t\r\n", {{"1", "2"}, {"3", ""}}},
               {"1,2\n3,4", {{"1", "2"}, {"3", "4"}}},
               {"1,5\t2", {{"1,5", "2"}}},
               {" 7 \n\n", {{"7"}}}};
  for (const auto& [text, cells] : cases) EXPECT_EQ(cellsOfText(text), cells) << text;
}

}  // namespace
}  // namespace noldarz::test
