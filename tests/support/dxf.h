// Drawings for tests, written short.
#pragma once

#include <sstream>
#include <string>

namespace noldarz::test {

/// Codes and values, blanks between them, as the lines of a file; a blank within a value is written "`", an empty value
/// "~".
inline std::string tags(const std::string& words, const std::string& lineEnd = "\n") {
  std::istringstream stream(words);
  std::string lines;
  for (std::string word; stream >> word;) {
    for (char& letter : word) letter = letter == '`' ? ' ' : letter;
    lines += (word == "~" ? "" : word) + lineEnd;
  }
  return lines;
}

inline std::string section(const std::string& name, const std::string& words) {
  return tags("0 SECTION 2 " + name + " " + words + " 0 ENDSEC");
}

}  // namespace noldarz::test
