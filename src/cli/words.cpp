#include "cli/words.h"

#include <algorithm>

#include "cli/script_error.h"

namespace noldarz {

namespace {

constexpr std::string_view blanks = " \t\r";

char escaped(char letter) {
  switch (letter) {
    case '"':
    case '\\': return letter;
    case 'n': return '\n';
    case 't': return '\t';
    default: throw ScriptError(std::string("unknown escape \"\\") + letter + "\"");
  }
}

/// The word whose opening quote was just taken from the line; takes it off with its closing quote.
std::string takeQuoted(std::string_view& line) {
  std::string word;
  while (!line.empty()) {
    char letter = line.front();
    line.remove_prefix(1);
    if (letter == '"') {
      if (!line.empty() && blanks.find(line.front()) == std::string_view::npos && line.front() != '#')
        throw ScriptError("no blank behind the quoted word \"" + word + "\"");
      return word;
    }
    if (letter == '\\') {
      if (line.empty()) break;
      letter = escaped(line.front());
      line.remove_prefix(1);
    }
    word += letter;
  }
  throw ScriptError("the quote before \"" + word + "\" is not closed");
}

/// The one word that begins with # and needs no quotes: the position of a list entry, `choose FIELD #N`.
bool isPosition(const std::vector<std::string>& words, std::string_view rest) {
  return words.size() == 2 && words[0] == "choose" && rest.size() > 1 && rest[1] >= '0' && rest[1] <= '9';
}

}  // namespace

std::vector<std::string> splitWords(std::string_view line) {
  std::vector<std::string> words;
  while (true) {
    const auto begin = line.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return words;
    line.remove_prefix(begin);
    const bool position = line.front() == '#' && isPosition(words, line);
    if (line.front() == '#' && !position) return words;
    if (line.front() == '"') {
      line.remove_prefix(1);
      words.push_back(takeQuoted(line));
      continue;
    }
    const auto end = std::min(line.find_first_of(" \t\r#", position ? 1 : 0), line.size());
    const auto word = line.substr(0, end);
    if (word.find('"') != std::string_view::npos)
      throw ScriptError("a quote inside the word \"" + std::string{word} + "\"");
    words.emplace_back(word);
    line.remove_prefix(end);
  }
}

}  // namespace noldarz
