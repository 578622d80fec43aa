// What kind of file stands where a study should be, told by its content before the database engine touches it.
#pragma once

#include <filesystem>
#include <string>

namespace noldarz {

/// What keeps the file from being opened as an SQLite database, as the end of a sentence that begins with its name ("is
/// a text, no study"); empty when nothing does. Reads the head of the file only.
std::string faultOfFile(const std::filesystem::path& file);

}  // namespace noldarz
