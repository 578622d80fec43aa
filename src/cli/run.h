// The command `run`: computes the active project of a study, or a release that a script describes, and prints the
// report.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/report.h"
#include "cli/script.h"

namespace noldarz {

struct RunRequest {
  /// A start folder, whose study is computed; or the script of a release, "-" for standard input.
  std::string target = ".";
  /// Folder in which a script starts; empty for the current one.
  std::string startFolder;
  ReportFormat format = ReportFormat::page;
  /// Reply to every question; else each takes its default. A question that comes back after a Yes takes its default.
  std::optional<Reply> answer;
  /// Six levels (ppm), separated by commas, or none; an empty one stays as the run or the chemical has it.
  std::string levels;
  /// How the limits are found, "probit" or "lethal" (concentration); nothing: by the user's setting.
  std::optional<std::string> limits;
  /// Whether the report table is printed, and for which population densities (persons/Ha): five, separated by commas,
  /// or none.
  bool table = false;
  std::string densities;
};

/// Computes and prints. A study: the program starts, Compute is pressed twice with the levels of the run, or those of
/// the chemical for a run that has none yet, and the row is written. A script runs without its own output.
///
/// The reason why there is no valid run goes to `errors`. A request, folder, file or line at fault has the status
/// `refused`, and nothing is printed. A study that can't be opened has the status `failed`, and so has, after its
/// report, a run that found no maximum, whose levels are refused, whose results are not stored, or that gives no table.
ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders = Folders::ofUser());

}  // namespace noldarz
