// The command `run`: computes the active project of a study, or a release that a script describes, and prints the
// report.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/computed_run.h"
#include "cli/report.h"

namespace noldarz {

struct RunRequest : RunTarget {
  ReportFormat format = ReportFormat::page;
  /// Whether the report table is printed.
  bool table = false;
  /// For which population densities (persons/Ha): five, separated by commas; "": those of the study's grid; nothing:
  /// without people.
  std::optional<std::string> densities;
  /// The sector of the grid, 1 to 8; nothing: the one that the user has chosen last.
  std::optional<int> sector;
};

/// Computes (cli/computed_run.h) and prints. A run that is none has the status `failed` after its report, and so has
/// one that gives no table.
ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders = Folders::ofUser());

}  // namespace noldarz
