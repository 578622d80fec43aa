#include "platform/cad/dxf_tags.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstring>

#include "platform/cad/drawing.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr int comment = 999;
constexpr int mostDigits = 5;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

}  // namespace

std::string_view DxfTag::word() const {
  std::string_view text = value;
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

double DxfTag::number() const { return parseNumber(value).value; }

int DxfTag::integer() const {
  std::string_view text = word();
  if (text.starts_with('+')) text.remove_prefix(1);
  int result = 0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), result).ec;
  return error == std::errc{} ? result : 0;
}

std::string shownWord(std::string_view text) {
  constexpr std::size_t most = 20;
  std::string shown{text.substr(0, std::min(text.find_first_of("\r\n"), most))};
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return shown;
}

std::size_t lineAt(std::string_view text, std::size_t position) {
  const auto before = text.substr(0, position);
  return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

DxfTags::DxfTags(std::string_view text, std::size_t from, std::size_t to)
    : text_(text), at_(std::min(from, text.size())), end_(std::min(to, text.size())) {}

/// Goes behind the line of the code; false where it is none.
bool DxfTags::readCode(int& code) {
  const char* at = text_.data() + at_;
  const char* const end = text_.data() + end_;
  while (at != end && isBlank(*at)) ++at;
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  const char* const digits = at;
  int value = 0;
  for (; at != end && *at >= '0' && *at <= '9' && at - digits < mostDigits; ++at) value = 10 * value + (*at - '0');
  if (at == digits) return false;
  while (at != end && isBlank(*at)) ++at;
  if (at == end || *at != '\n') return false;
  code = negative ? -value : value;
  at_ = static_cast<std::size_t>(at + 1 - text_.data());
  return true;
}

void DxfTags::failAt(std::size_t line) const {
  const auto rest = text_.substr(line, end_ - line);
  if (rest.find('\n') >= rest.size() - 1)  // the last one
    throw CadFailure(fmt::format("is cut off at line {}, within a tag. Get a whole copy of it.", lineAt(text_, line)));
  throw CadFailure(
      fmt::format("is damaged: line {} should hold a group code and holds \"{}\". Get another copy of it, or "
                  "save it again in your CAD.",
                  lineAt(text_, line),
                  shownWord(rest)));
}

bool DxfTags::next(DxfTag& tag) {
  do {
    if (at_ >= end_) return false;
    tag.begin = at_;
    if (!readCode(tag.code) || at_ >= end_) failAt(tag.begin);
    const char* const value = text_.data() + at_;
    const auto* const lineEnd = static_cast<const char*>(std::memchr(value, '\n', end_ - at_));
    const std::size_t size = lineEnd ? static_cast<std::size_t>(lineEnd - value) : end_ - at_;
    at_ += lineEnd ? size + 1 : size;
    tag.end = at_;
    tag.value = {value, size > 0 && value[size - 1] == '\r' ? size - 1 : size};
  } while (tag.code == comment);
  return true;
}

}  // namespace noldarz
