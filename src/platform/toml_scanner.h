// Follows a TOML text character by character, as far as it takes to know where its tables begin and how deep it nests.
// The reader of the texts goes down one call a level, so a text from a stranger is looked at before it is read.
#pragma once

#include <cstdint>
#include <string_view>

namespace noldarz {

class TomlScanner {
 public:
  void take(char c);

  /// Behind a line, outside of strings and values: a table may begin.
  bool isBetweenLines() const { return lineBegins_ && state_ == State::plain && depth_ <= 0; }
  /// Whether lists, inline tables or dotted names nest deeper than any text of this program does.
  bool isTooDeep() const { return depth_ > mostLevels || dots_ > mostLevels; }

 private:
  static constexpr int mostLevels = 100;
  enum class State : std::uint8_t { plain, comment, opening, text, longText };

  void takePlain(char c);
  void takeInText(char c);
  void takeInLongText(char c);

  State state_ = State::plain;
  char quote_ = 0;
  int quotes_ = 0;  // of the mark that opens or closes a string
  bool escaped_ = false;
  bool lineBegins_ = true;
  int depth_ = 0;
  int dots_ = 0;  // in the line
};

/// Whether the text nests deeper than the reader may go down.
bool isTomlTooDeep(std::string_view text);

}  // namespace noldarz
