#include "toxic/absolute_numbers.h"

#include <array>

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

// Outer ends of the rings, closed (m); the last ring has none.
constexpr std::array<double, ringCount - 1> ringEnds{2000, 4000, 6000, 8000};

int ringOf(double distance) {
  int ring = 0;
  while (ring < static_cast<int>(ringEnds.size()) && distance > ringEnds.at(static_cast<std::size_t>(ring))) ++ring;
  return ring;
}

}  // namespace

void absRow(int row, const ReportCells& cells, const DensityFields& density) {
  const int reportIdx = row * rowCells;
  const auto cell = [&](int column) { return strictNumber(cells.Prbttxt1[reportIdx + column].caption()); };
  const auto people = [&](int percentColumn) {
    const Field& persons = density.populatndnsty[ringOf(cell(0))];
    return Format(checked(cell(3) * cell(percentColumn) * persons.number() / 100), "0.000");
  };
  silently([&] {
    cells.Absftltxt[row].setCaption(people(1));
    cells.AbsInjtxt[row].setCaption(people(2));
  });
}

}  // namespace noldarz
