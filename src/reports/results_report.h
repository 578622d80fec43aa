// What the results report does when it opens: the table of the limit search comes into its cells.
#pragma once

#include "population/state.h"
#include "reports/report_view.h"
#include "study/outputs.h"
#include "toxic/limit_search.h"

namespace noldarz {

class ResultsReport {
 public:
  struct Sees {
    PopulationState& population;
    ReportTableState& table;
    ReportView& report;
    LimitSearch& limitSearch;
    Outputs& outputs;
  };
  /// Subscribes the rules of the view.
  explicit ResultsReport(const Sees& sees);

 private:
  void Form_Load();

  Sees sees_;
};

}  // namespace noldarz
