// How many people die or are hurt in each band of the report table: the percentages of the row, the area of its band, and the
// population density of the ring in which it lies. Called by the report and the population view, row by row.
#pragma once

#include "toxic/fields.h"

namespace noldarz {

/// Works on the texts of a row (0 to 19):
///
///   number = area (Ha) * percent * density (persons/Ha) / 100      in three decimals
///
/// The ring of 2 km goes by the distance of the row, with the density of the fifth one beyond 10 km. A cell that holds no
/// number, such as an area of "<0.001", leaves the numbers that need it as they were; fatality comes first.
void absRow(int row, const ReportCells& cells, const DensityFields& density);

}  // namespace noldarz
