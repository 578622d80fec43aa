#include "platform/cad/plain_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

namespace noldarz {

namespace {

constexpr std::string_view withArgument = "ACFHQTWcfpx";  // codes that end with a semicolon
constexpr std::string_view withoutArgument = "KLOklo";

char lower(char letter) { return static_cast<char>(std::tolower(static_cast<unsigned char>(letter))); }

/// A letter below 256 in UTF-8.
std::string letterOf(unsigned code) {
  if (code < 0x80) return {static_cast<char>(code)};
  return {static_cast<char>(0xC0U | code >> 6U), static_cast<char>(0x80U | (code & 0x3FU))};
}

/// The number of three digits behind %%; 0 when there is none.
unsigned codeAt(std::string_view text) {
  unsigned code = 0;
  const auto digits = text.substr(0, 3);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code);
  return error == std::errc{} && end == digits.data() + 3 && code < 256 ? code : 0;
}

/// Takes the codes of a text of many lines away as it walks over it.
class Stripper {
 public:
  explicit Stripper(std::string_view text) : text_(text) {}

  std::vector<std::string> lines() {
    while (at_ < text_.size()) step();
    lines_.back() = plainLine(lines_.back());
    return std::move(lines_);
  }

 private:
  void step() {
    const char sign = text_[at_++];
    if (sign == '\\' && at_ < text_.size()) return code(text_[at_++]);
    if (sign == '\n') return end();
    if (sign != '{' && sign != '}' && sign != '\r') lines_.back() += sign;
  }
  void code(char sign) {
    if (sign == 'P' || sign == 'N' || sign == 'X') return end();
    if (sign == '~') {
      lines_.back() += ' ';
    } else if (sign == 'S') {
      stack();
    } else if (withArgument.find(sign) != std::string_view::npos) {
      argument();
    } else if (withoutArgument.find(sign) == std::string_view::npos) {
      lines_.back() += sign;  // a brace, a backslash
    }
  }
  std::string_view argument() {
    const auto end = std::min(text_.find(';', at_), text_.size());
    const auto found = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    return found;
  }
  /// A fraction: "1^2", "1/2" or "1#2".
  void stack() {
    for (const char sign : argument())
      if (sign != '\\') lines_.back() += sign == '^' || sign == '#' ? '/' : sign;
  }
  void end() {
    lines_.back() = plainLine(lines_.back());
    lines_.emplace_back();
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<std::string> lines_{1};
};

void breakLine(const std::string& line, std::size_t most, std::vector<std::string>& lines) {
  std::string piece;
  std::size_t letters = 0;  // of the piece
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t end = std::min(line.find(' ', at + 1), line.size());
    auto word = std::string_view{line}.substr(at, end - at);
    const bool fits = piece.empty() || letters + lettersOf(word) <= most;
    if (!fits) {
      lines.push_back(std::exchange(piece, ""));
      letters = 0;
      word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
    }
    piece += word;
    letters += lettersOf(word);
    at = end;
  }
  lines.push_back(std::move(piece));
}

}  // namespace

std::string plainLine(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    if (!text.substr(at).starts_with("%%") || at + 2 == text.size()) {
      plain += text[at++];
      continue;
    }
    const char sign = lower(text[at + 2]);
    const unsigned code = codeAt(text.substr(at + 2));
    at += code != 0 ? 5 : 3;
    if (code != 0) plain += letterOf(code);
    if (sign == 'd') plain += "\u00B0";
    if (sign == 'p') plain += "\u00B1";
    if (sign == 'c') plain += "\u00D8";
    if (sign == '%') plain += '%';
  }
  return plain;
}

std::vector<std::string> plainLines(std::string_view text, std::size_t most) {
  auto whole = Stripper{text}.lines();
  if (most == 0) return whole;
  std::vector<std::string> lines;
  for (const std::string& line : whole) breakLine(line, most, lines);
  return lines;
}

std::size_t lettersOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

}  // namespace noldarz
