// A run that the command line computes: the active project of a study, or a release that a script describes. `run`
// prints it, `plot` draws it, `at` asks it.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/report.h"
#include "cli/script.h"

namespace noldarz {

struct RunTarget {
  /// A start folder, whose study is computed; or the script of a release, "-" for standard input.
  std::string target = ".";
  /// Folder in which a script starts; empty for the current one.
  std::string startFolder;
  /// Reply to every question; else each takes its default. A question that comes back after a Yes takes its default.
  std::optional<Reply> answer;
  /// Six levels (ppm), separated by commas, or none; an empty one stays as the run or the chemical has it.
  std::string levels;
  /// How the limits are found, "probit" or "lethal" (concentration); nothing: by the user's setting.
  std::optional<std::string> limits;
};

/// Whether a script is computed, in place of a study.
bool isScript(const RunTarget& request);

struct ComputedRun {
  Folders folders;
  bool ofStudy = false;
  std::string limitsFrom;                  ///< who has chosen how the limits are found
  std::unique_ptr<ScriptSession> session;  ///< the program, as the run left it
  Messages messages{};
  std::string fault{};  ///< why there is no valid run, or none in the study; empty when there is
};

/// Does something with the run. Empty, or why the command failed.
using UseRun = std::function<std::string(ComputedRun&)>;

/// Computes. A study: the program starts, Compute is pressed twice with the levels of the run, or those of the chemical
/// for a run that has none yet, and the row is written. A script runs without its own output.
///
/// A request, folder, file or line at fault has the status `refused`, a study that can't be opened `failed`; the reason
/// goes to `errors`, and the run is not used. Else the status tells whether its use failed, and why.
ExitStatus withComputedRun(const RunTarget& request, std::ostream& errors, const Folders& folders, const UseRun& use);

/// The items of a list, separated by commas.
std::vector<std::string> itemsOf(const std::string& list);
enum class Gaps : std::uint8_t { refused, allowed };
/// Why the numbers of a list, given by an option, can't be taken; empty when they can. No item at all is no fault.
std::string faultOfList(const char* option, const std::vector<std::string>& numbers, std::size_t count, Gaps gaps);

}  // namespace noldarz
