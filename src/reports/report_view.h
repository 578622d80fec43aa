// The results report `chldfrm`. It carries the table of fatality and injury, and has no window yet.
#pragma once

#include "platform/view.h"
#include "population/report_table.h"

namespace noldarz {

struct ReportView {
  explicit ReportView(Views& views) : view(views, "chldfrm", " NOLDA-RZ : Print preview"), table(view) {}

  View view;
  ReportTableFields table;
};

}  // namespace noldarz
