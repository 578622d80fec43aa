// Texts of drawings: from the code page of a drawing to UTF-8 and back, with the escapes of the format (\U+XXXX, ^J).
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

/// What the bytes of a drawing stand for. Made once per drawing; reads from several threads at once.
class CodePage {
 public:
  /// By a name as in $DWGCODEPAGE, whatever the case: "ANSI_1252", "dos850", "UTF-8". An unknown one reads as
  /// ANSI_1252.
  explicit CodePage(std::string_view name);
  /// What can't be decoded becomes U+FFFD.
  std::string toUtf8(std::string_view bytes) const;

 private:
  static constexpr std::size_t half = 128;  // bytes from 128 on
  bool utf8_ = false;
  std::array<char32_t, half> single_{};
  std::vector<char32_t> pairs_;  // 256 for each first byte; empty where the page has none
};

/// A text in UTF-8 with its escapes decoded: \U+XXXX, ^J, ^I, ^M and "^ ".
std::string withoutEscapes(std::string_view text);
/// The text as a value of a tag: control characters and line breaks as blanks, "^" as "^ ", and, unless the drawing is
/// in UTF-8, what is not ASCII as \U+XXXX.
std::string asDxfText(std::string_view text, bool inUtf8);

/// A to Z in lower case: names of a drawing compare so.
std::string lowerCase(std::string_view name);

}  // namespace noldarz
