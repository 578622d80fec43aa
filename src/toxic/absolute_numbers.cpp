#include "toxic/absolute_numbers.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

// Outer ends of the rings, closed (m); the last ring has none.
constexpr std::array<double, ringCount - 1> ringEnds{2000, 4000, 6000, 8000};

}  // namespace

int ringOf(double distance) {
  int ring = 0;
  while (ring < static_cast<int>(ringEnds.size()) && distance > ringEnds.at(static_cast<std::size_t>(ring))) ++ring;
  return ring;
}

double peopleIn(double area, double percent, double density) { return checked(area * percent * density / 100); }

void absRow(const RowTexts& row, const RingDensities& densities, std::string& dead, std::string& hurt) {
  const auto people = [&](int percentColumn) {
    const auto ring = static_cast<std::size_t>(ringOf(strictNumber(row[0])));
    const double percent = strictNumber(row[static_cast<std::size_t>(percentColumn)]);
    return Format(peopleIn(strictNumber(row[3]), percent, strictNumber(densities[ring])), "0.000");
  };
  silently([&] {
    dead = people(1);
    hurt = people(2);
  });
}

}  // namespace noldarz
