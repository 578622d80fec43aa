// The fields of the project that is at work: organisation, reference number, chemical, scenario, and the name of the
// run. The queries read them; the links of the study fill them.
#pragma once

#include "platform/field.h"
#include "platform/view.h"

namespace noldarz {

struct ProjectFields {
  explicit ProjectFields(View& view);

  Field& Orglbltxt;    // organisation
  Field& refnolbl;     // reference number of the project
  Field& chmnmelbl;    // chemical, with ": " in front once the study is open
  Field& naturchem;    // nature of the chemical; not shown
  Field& reftmptxt;    // reference number of the row of heights and terrain; not shown
  Field& scnrotxt;     // text of the working scenario; not shown
  Field& scnrotxtlbl;  // name of the run
};

}  // namespace noldarz
