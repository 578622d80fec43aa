// The command `at`: computes as `run` does, and tells what arrives at places: distance, concentration on the plume axis
// at that distance, hazard.
#pragma once

#include "cli/computed_run.h"

namespace noldarz {

struct AtRequest : RunTarget {
  std::vector<std::string> places;  ///< "X" or "X,Y" (m from the source)
  std::string file;                 ///< a place a line; "-" for standard input; empty: none
  ReportFormat format = ReportFormat::page;
};

/// Whether the word is a place.
bool isPlace(std::string_view word);

/// Prints the places in their order. A request or a place that can't be taken has the status `refused`; a run that is
/// none `failed`.
ExitStatus tellPlaces(const AtRequest& request, std::istream& in, std::ostream& out, std::ostream& errors,
                      const Folders& folders = Folders::ofUser());

}  // namespace noldarz
