#include "toxic/absolute_numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
  Views views;
  View report{views, "chldfrm", ""};
  View population{views, "absltftlyfrm", ""};
  const ReportCells cells{report};
  const DensityFields density{population};
  const char* persons[] = {"1", "2", "3", "0", "4.5"};
  for (int i = 0; i < density.populatndnsty.size(); ++i) density.populatndnsty[i].setText(persons[i]);
  int row = 0;
  for (const auto& [distance, fatality, injury, area, dead, hurt] : cases) {
    const std::vector<const char*> texts{distance, fatality, injury, area};
    for (int i = 0; i < 4; ++i) cells.Prbttxt1[6 * row + i].setCaption(texts[static_cast<std::size_t>(i)]);
    cells.Absftltxt[row].setCaption("before");
    cells.AbsInjtxt[row].setCaption("before");
    absRow(row, cells, density);
    EXPECT_EQ(cells.Absftltxt[row].caption(), dead) << distance;
    EXPECT_EQ(cells.AbsInjtxt[row].caption(), hurt) << distance;
    ++row;
  }
  cells.Prbttxt1[2].setCaption("many");  // fatality is written first, and stays
  density.populatndnsty[0].setText("2");
  absRow(0, cells, density);
  EXPECT_EQ(cells.Absftltxt[0].caption(), "8.125");
  EXPECT_EQ(cells.AbsInjtxt[0].caption(), "1.016");
}

}  // namespace
}  // namespace noldarz
