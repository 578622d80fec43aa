// The fields that the scenario handling adds to the main view: the stored runs, the timers, the menu, the status line.
#pragma once

#include "platform/field.h"
#include "platform/view.h"

namespace noldarz {

struct ScenarioFields {
  explicit ScenarioFields(View& view);

  Field& conctemp;         // a column of the chemical's data, chosen when it is read; not shown
  Field& releaselbl;       // the release in one line
  Field& resultnotelbl;    // why a figure is none, or what has changed since; empty when all stand
  Field& dspScnorlst_1;    // stored runs, the last one on top
  Field& clsfrm1;          // closes the view
  Field& file;             // menu
  Field& lnwdth;           // menu: width of the contours
  Field& no2;              // 2 pixels
  Field& no4;              // 4 pixels
  Field& popdnsty;         // menu: the population around the source
  Field& exit;             // closes the view, from the menu
  Field& helpVinf;         // explanation of the isopleth columns
  FieldArray<8> headings;  // heads of the isopleth table; a double click explains them
  Field& conctxt1;         // editor of a level's caption, hidden until used
  Field& tmr_1;            // asks for the run row step after the event has ended
  Field& Tmr_2;            // settles the first focus
  Field& statuslbl;        // what happened last, and what the study could not take
};

}  // namespace noldarz
