#include "reports/results_report.h"

#include <algorithm>

#include "platform/failure.h"

namespace noldarz {

ResultsReport::ResultsReport(const Sees& sees) : sees_(sees) {
  View& view = sees_.report.view;
  view.onLoad([this] { Form_Load(); });
  view.onClose([this] { sees_.population.popViewOpened = 0; });
  sees_.outputs.attach(AttachedView::chldfrm, view);
}

void ResultsReport::Form_Load() {
  std::fill_n(sees_.table.prbtTable.begin(), tableCells, 0.0);
  silently([this] { sees_.limitSearch.fillTable(); });
  sees_.report.table.reset();
  sees_.report.table.showTable(sees_.table);
}

}  // namespace noldarz
