// `noldarz-cli study`: makes a study file from a text, writes one as a text, checks one.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "cli/script.h"

namespace noldarz {

/// Makes the study `file` from the text in `source`. Nothing is left behind when it fails; an existing file is kept
/// unless `force`.
ExitStatus createStudy(const std::filesystem::path& file, const std::filesystem::path& source, bool force,
                       std::ostream& errors);

/// Prints the study as a text.
ExitStatus exportStudy(const std::filesystem::path& file, std::ostream& out, std::ostream& errors);

/// Tells whether the file is a sound study that the program can start on.
ExitStatus checkStudy(const std::filesystem::path& file, std::ostream& out, std::ostream& errors);

}  // namespace noldarz
