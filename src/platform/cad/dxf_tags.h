// The tags of a drawing in the ASCII drawing exchange format: a group code on one line, its value on the next. They are
// read in place; nothing is copied.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace noldarz {

struct DxfTag {
  int code = 0;
  std::string_view value;  ///< without the line end; blanks stay
  std::size_t begin = 0;   ///< of the line of the code in the text
  std::size_t end = 0;     ///< behind the line end of the value

  /// The value without blanks around it.
  std::string_view word() const;
  bool is(int group, std::string_view word_) const { return code == group && word() == word_; }
  /// The value as a number; 0 where it is none, or not finite.
  double number() const;
  /// The same as a whole number, within the range of an int.
  int integer() const;
};

/// Walks over the tags of a text. Comments (group 999) are passed over.
class DxfTags {
 public:
  /// From a place in the text that begins a tag, up to another.
  explicit DxfTags(std::string_view text, std::size_t from = 0, std::size_t to = std::string_view::npos);

  /// The next tag; false at the end. Fails with CadFailure, a sentence without the name of the file, which tells the
  /// line, for a code that is no whole number and for a code without a value; not between tags that were read before.
  bool next(DxfTag& tag);
  std::size_t position() const { return at_; }

 private:
  bool readCode(int& code);
  [[noreturn]] void failAt(std::size_t line) const;

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

/// What stands there, as a message can show it: up to the line end, at most 20 characters.
std::string shownWord(std::string_view text);
/// Counts from 1.
std::size_t lineAt(std::string_view text, std::size_t position);

}  // namespace noldarz
