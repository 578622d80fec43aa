// The fields that the toxic effects add to the main view, the progress view of their chart, and the cells and densities that
// the absolute numbers work on.
#pragma once

#include <cstddef>

#include "engine/fields.h"
#include "platform/field.h"
#include "platform/view.h"

namespace noldarz {

struct ToxicFields {
  explicit ToxicFields(View& view);

  Field& maxdstprtxt;         // end of the limit search, the report table and the profile (m); not shown
  Field& FatatyDistDsplyLbl;  // fatality distance limit
  Field& InjuryDistDsplyLbl;  // injury distance limit
  FieldArray<6> prbteqnlbl;   // the equations beside the constants
};

/// `progrsBar`, shown while the profile chart is drawn.
struct ProfileProgress {
  explicit ProfileProgress(Views& views);

  View view;
  Field& progPic1;  // trough
  Field& progPic2;  // bar
  Field& probrLbl;  // text
};

/// Rows of the report table.
inline constexpr int tableRows = 20;
/// Cells of a row: distance (m), fatality (%), injury (%), area (Ha), concentration (ppm), dose (mg).
inline constexpr int rowCells = 6;
inline constexpr std::size_t tableCells = std::size_t{tableRows} * rowCells;

/// The report table as the report shows it.
struct ReportCells {
  explicit ReportCells(View& view);

  FieldArray<tableCells> Prbttxt1;
  FieldArray<tableRows> Absftltxt;  // people who die in the band of the row
  FieldArray<tableRows> AbsInjtxt;  // people who are hurt in it
};

/// Population density of the sector shown, by ring of 2 km (persons/Ha).
struct DensityFields {
  explicit DensityFields(View& view);

  FieldArray<5> populatndnsty;
};

}  // namespace noldarz
