#include "platform/toml_scanner.h"

#include <algorithm>

namespace noldarz {

namespace {

constexpr int longMark = 3;  // quotes around a string of several lines

}  // namespace

void TomlScanner::take(char c) {
  lineBegins_ = c == '\n' || (lineBegins_ && (c == ' ' || c == '\t' || c == '\r'));
  if (c == '\n') dots_ = 0;
  if (state_ == State::opening) {
    if (c == quote_) {
      if (++quotes_ == longMark) state_ = State::longText, quotes_ = 0;
      return;
    }
    state_ = quotes_ == 1 ? State::text : State::plain;  // two quotes are an empty string
  }
  switch (state_) {
    case State::text: return takeInText(c);
    case State::longText: return takeInLongText(c);
    case State::comment:
      if (c == '\n') state_ = State::plain;
      return;
    default: return takePlain(c);
  }
}

void TomlScanner::takePlain(char c) {
  if (c == '#') state_ = State::comment;
  if (c == '"' || c == '\'') {
    state_ = State::opening;
    quote_ = c;
    quotes_ = 1;
  }
  if (c == '[' || c == '{') ++depth_;
  if (c == ']' || c == '}') --depth_;
  if (c == '.') ++dots_;
}

void TomlScanner::takeInText(char c) {
  const bool ends = (c == quote_ && !escaped_) || c == '\n';
  escaped_ = c == '\\' && quote_ == '"' && !escaped_;
  if (ends) state_ = State::plain;
}

void TomlScanner::takeInLongText(char c) {
  if (c == quote_ && !escaped_) {
    ++quotes_;
    return;
  }
  const bool ended = quotes_ >= longMark;
  quotes_ = 0;
  escaped_ = c == '\\' && quote_ == '"' && !escaped_ && !ended;
  if (!ended) return;
  state_ = State::plain;
  takePlain(c);
}

bool isTomlTooDeep(std::string_view text) {
  TomlScanner scanner;
  return std::any_of(text.begin(), text.end(), [&](char c) {
    scanner.take(c);
    return scanner.isTooDeep();
  });
}

}  // namespace noldarz
