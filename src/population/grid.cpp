#include "population/grid.h"

#include <fmt/format.h>

#include "engine/constants.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double hectaresPerSquareKilometre = 100;

constexpr double discArea(double radius) { return square(radius) * pi; }

const Band& bandAt(int band) { return bands.at(static_cast<std::size_t>(band)); }

}  // namespace

double ringArea(int band) {
  return discArea(bandAt(band).outerRadius) - (band > 0 ? discArea(bandAt(band - 1).outerRadius) : 0);
}

double densityFrom(const DensityUnit& unit, double number, int band) {
  switch (unit.way) {
    case DensityUnit::Way::ofRing: return checked(number / ringArea(band) * unit.factor);
    case DensityUnit::Way::times: return checked(number * unit.factor);
    case DensityUnit::Way::by: break;
  }
  return checked(number / unit.factor);
}

std::string columnOf(int cell) { return fmt::format("populatndnsty_{}_{}", sectorOf(cell) + 1, bandOf(cell)); }

std::string cellName(int cell) {
  std::string_view distances = bandAt(bandOf(cell)).caption;
  distances.remove_suffix(1);  // its full stop
  const auto sector = static_cast<std::size_t>(sectorOf(cell));
  return fmt::format("sector {} ({}), {}", sector + 1, sectorNames.at(sector), distances);
}

std::array<double, gridBands> peopleWithin(const DensityGrid& grid) {
  std::array<double, gridBands> people{};
  double sum = 0;
  for (int band = 0; band < gridBands; ++band) {
    const double cellArea = ringArea(band) * hectaresPerSquareKilometre / gridSectors;  // Ha
    for (int sector = 0; sector < gridSectors; ++sector)
      sum += grid.at(static_cast<std::size_t>(cellIndex(sector, band))) * cellArea;
    people.at(static_cast<std::size_t>(band)) = sum;
  }
  return people;
}

std::string faultOfDensity(const std::string& text) {
  const ParsedNumber parsed = parseNumber(text);
  if (!parsed.isNumber()) return "is no number";
  return parsed.value < 0 ? "is below 0" : "";
}

}  // namespace noldarz
