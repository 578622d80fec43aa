#include "toxic/absolute_numbers.h"

#include <gtest/gtest.h>

#include <string>

namespace noldarz {
namespace {

TEST(AbsoluteNumbers, areAreaTimesPercentTimesTheDensityOfTheRing) {
  const struct {
    const char *distance, *fatality, *injury, *area;
    const char *dead, *hurt;
  } cases[] = {
      {"2000", "50", "12.5", "8.125", "4.063", "1.016"},     // ring 0: 1 person/Ha
      {"2000.01", "50", "12.5", "8.125", "8.125", "2.031"},  // ring 1: 2
      {"4000", "100", "0", "0.001", "0.002", "0.000"},       // ring 1
      {"6000", "1", "2", "1000", "30.000", "60.000"},        // ring 2: 3
      {"8000", "1", "2", "1000", "0.000", "0.000"},          // ring 3: nobody lives there
      {"10000", "1", "2", "1000", "45.000", "90.000"},       // ring 4: 4.5
      {"12000", "1", "2", "1000", "45.000", "90.000"},       // beyond
      {"0", "0", "0", "0", "0.000", "0.000"},                // a row that was never filled
      {"100", "1", "2", "<0.001", "before", "before"},       // no number: both stay
      {"N.A.", "1", "2", "5", "before", "before"},
  };
  const RingDensities densities{"1", "2", "3", "0", "4.5"};
  for (const auto& [distance, fatality, injury, area, dead, hurt] : cases) {
    std::string shownDead = "before";
    std::string shownHurt = "before";
    absRow({distance, fatality, injury, area}, densities, shownDead, shownHurt);
    EXPECT_EQ(shownDead, dead) << distance;
    EXPECT_EQ(shownHurt, hurt) << distance;
  }
  std::string dead = "before";  // fatality is written first, and stays
  std::string hurt = "before";
  absRow({"2000", "50", "many", "8.125"}, {"2", "2", "3", "0", "4.5"}, dead, hurt);
  EXPECT_EQ(dead, "8.125");
  EXPECT_EQ(hurt, "before");
}

}  // namespace
}  // namespace noldarz
