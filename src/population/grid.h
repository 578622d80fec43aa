// The polar grid around a source: eight compass sectors by five bands of 2 km, a density of persons per hectare in each
// cell. What its bands, units and settlement classes are, and how a head count becomes a density and back. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "population/state.h"

namespace noldarz {

struct Band {
  std::string_view caption;
  double outerRadius;  ///< km
};
inline constexpr std::array<Band, gridBands> bands{
    {{"0 To 2 km.", 2}, {">2 To 4 km.", 4}, {">4 To 6 km.", 6}, {">6 To 8 km.", 8}, {">8 To 10 km.", 10}}};

inline constexpr std::array<std::string_view, gridSectors> sectorNames{
    "north", "north-east", "east", "south-east", "south", "south-west", "west", "north-west"};

/// Settlement classes with their density (persons/Ha).
struct SettlementClass {
  std::string_view name;
  int density;
};
inline constexpr std::array<SettlementClass, 9> settlementClasses{{{"Mega City", 80},
                                                                   {"Urban", 50},
                                                                   {"Suburban", 30},
                                                                   {"Town", 20},
                                                                   {"Large Rural", 15},
                                                                   {"Medium Rural", 10},
                                                                   {"Small Rural", 5},
                                                                   {"Sparcely Populated", 2},
                                                                   {"None", 0}}};

/// What a number in a band can be before it is converted, and how it becomes persons per hectare.
struct DensityUnit {
  enum class Way : std::uint8_t { ofRing, times, by };  ///< per km2 of the ring, then times; times; divided by

  std::string_view entry;
  Way way;
  double factor;
};
inline constexpr std::array<DensityUnit, 5> densityUnits{
    {{"Enter population To Density/Ha", DensityUnit::Way::ofRing, 0.01},
     {"Density/km2 To Density/Ha", DensityUnit::Way::times, 0.01},
     {"Density/m2 To Density/Ha", DensityUnit::Way::by, 0.0001},
     {"Density/Sq.mile To Density/Ha", DensityUnit::Way::times, 0.00386},
     {"Density/Acre To Density/Ha", DensityUnit::Way::by, 0.40468564}}};

/// Area of the whole ring of a band (km2), with 3.14159 for pi.
double ringArea(int band);

/// Persons per hectare of a number in the unit. A head count is that of the whole ring of the band. Fails with overflow
/// beyond a double.
double densityFrom(const DensityUnit& unit, double number, int band);

/// A cell of the grid, in the order of the columns of the study: sector by sector, band by band, both from 0.
constexpr int cellIndex(int sector, int band) { return sector * gridBands + band; }
constexpr int sectorOf(int cell) { return cell / gridBands; }
constexpr int bandOf(int cell) { return cell % gridBands; }
/// "populatndnsty_1_0" of the first cell.
std::string columnOf(int cell);
/// "sector 1 (north), 0 To 2 km"
std::string cellName(int cell);

/// A grid of numbers (persons/Ha).
using DensityGrid = std::array<double, gridCells>;

/// People from the source to the outer radius of each band: densities of a sector count for an eighth of the ring.
std::array<double, gridBands> peopleWithin(const DensityGrid& grid);

/// Why a text is no density, as the end of a sentence that begins with it; empty when it is one.
std::string faultOfDensity(const std::string& text);

}  // namespace noldarz
