// The command `run`: carries out the script of a release and prints inputs, results and the isopleth table for people.
// Every printed number is the text of its field.
#pragma once

#include <iosfwd>
#include <string>

#include "cli/script.h"

namespace noldarz {

/// Runs the script FILE ("-": standard input) without its own output, then prints the report. The boxes that came are
/// part of the report. A line at fault goes to `errors`, and nothing is printed. A script that computes no maximum
/// ground concentration, or whose levels are refused, has its report printed, its fault told, and the status `failed`.
ExitStatus runAndReport(const std::string& file, const std::string& name, const std::string& version, std::ostream& out,
                        std::ostream& errors);

}  // namespace noldarz
