// How many people die or are hurt in each band of the report table: the percentages of the row, the area of its band,
// and the population density of the ring in which it lies. Called by the report and the population view, row by row.
#pragma once

#include <array>
#include <string>

#include "toxic/state.h"

namespace noldarz {

/// Rings of 2 km around the source.
inline constexpr int ringCount = 5;

/// The ring of a distance (m): 0 up to 2000 m, 2000 included, and so on; 4 beyond 8000 m.
int ringOf(double distance);

/// area (Ha) * percent * density (persons/Ha) / 100. Fails with overflow beyond a double.
double peopleIn(double area, double percent, double density);

/// Texts of a row of the report table: distance (m), fatality (%), injury (%), area (Ha), concentration (ppm), dose
/// (mg).
using RowTexts = std::array<std::string, rowCells>;
/// Population density of the sector shown, by ring, as texts (persons/Ha).
using RingDensities = std::array<std::string, ringCount>;

/// The numbers of a row in three decimals, with the density of the ring in which it lies. A cell that holds no number,
/// such as an area of "<0.001", leaves the numbers that need it as they were; fatality comes first.
void absRow(const RowTexts& row, const RingDensities& densities, std::string& dead, std::string& hurt);

}  // namespace noldarz
