// The fields that the toxic effects add to the main view, and the progress view of their chart.
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

}  // namespace noldarz
