// The fields that the toxic effects add to the main view, the progress view of their chart, and the cells and densities that
// the absolute numbers work on.
#pragma once

#include "engine/fields.h"
#include "platform/field.h"
#include "platform/view.h"
#include "toxic/state.h"

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

/// The report table as the report shows it.
struct ReportCells {
  explicit ReportCells(View& view);

  FieldArray<tableCells> Prbttxt1;
  FieldArray<tableRows> Absftltxt;  // people who die in the band of the row
  FieldArray<tableRows> AbsInjtxt;  // people who are hurt in it
};

/// Rings of 2 km around the source.
inline constexpr int ringCount = 5;

/// Population density of the sector shown, by ring of 2 km (persons/Ha).
struct DensityFields {
  explicit DensityFields(View& view);

  FieldArray<ringCount> populatndnsty;
};

}  // namespace noldarz
