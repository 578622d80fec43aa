// A line of a script into its words: separated by blanks, a word with blanks or # in double quotes, # begins a
// comment, but for the position in `choose FIELD #N`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

/// The words of a line. In quotes stand \" \\ \n \t for a quote, a backslash, a line break, a tab. Throws ScriptError
/// for a quote that isn't closed, an unknown escape, or a word that goes on after its closing quote.
std::vector<std::string> splitWords(std::string_view line);

}  // namespace noldarz
