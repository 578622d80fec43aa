// The command `run`: computes the active project of a study, or a release that a script describes, and prints the
// report.
#pragma once

#include <iosfwd>
#include <string>

#include "cli/computed_run.h"
#include "cli/report.h"

namespace noldarz {

struct RunRequest : RunTarget {
  ReportFormat format = ReportFormat::page;
  /// Whether the report table is printed, and for which population densities (persons/Ha): five, separated by commas,
  /// or none.
  bool table = false;
  std::string densities;
};

/// Computes (cli/computed_run.h) and prints. A run that is none has the status `failed` after its report, and so has
/// one that gives no table.
ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders = Folders::ofUser());

}  // namespace noldarz
