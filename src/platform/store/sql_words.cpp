#include "platform/store/sql_words.h"

#include <algorithm>
#include <cctype>

#include "platform/store/any_case.h"

namespace noldarz {

namespace {

using Kind = SqlWord::Kind;

bool beginsName(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0; }
bool continuesName(char c) { return beginsName(c) || std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '$'; }
bool isBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

/// Reads a statement from its begin to its end.
class Reader {
 public:
  explicit Reader(std::string_view statement) : statement_(statement) {}

  std::vector<SqlWord> words() {
    while (at_ < statement_.size()) takeNext();
    return std::move(words_);
  }

 private:
  std::string_view rest() const { return statement_.substr(at_); }
  void skipBehind(std::string_view mark) {
    const auto found = statement_.find(mark, at_);
    at_ = found == std::string_view::npos ? statement_.size() : found + mark.size();
  }

  void takeNext() {
    const char c = statement_[at_];
    if (isBlank(c)) return void(++at_);
    if (rest().starts_with("--")) return skipBehind("\n");
    if (rest().starts_with("/*")) return at_ += 2, skipBehind("*/");
    if (c == '\'') return takeQuoted(Kind::text, c);
    if (c == '"' || c == '`') return takeQuoted(Kind::quotedName, c);
    if (c == '[') return takeQuoted(Kind::quotedName, ']');
    if (beginsName(c)) return takeWhile(Kind::name, continuesName);
    if (std::isdigit(static_cast<unsigned char>(c)) != 0)
      return takeWhile(Kind::number, [](char d) { return continuesName(d) || d == '.'; });
    add(Kind::sign, std::string{c}, at_ + 1);
  }

  void takeQuoted(Kind kind, char quote) {
    std::string text;
    std::size_t end = at_ + 1;
    for (; end < statement_.size(); ++end) {
      const bool doubled = quote != ']' && end + 1 < statement_.size() && statement_[end + 1] == quote;
      if (statement_[end] == quote && !doubled) break;
      if (statement_[end] == quote) ++end;
      text += statement_[end];
    }
    add(kind, text, std::min(end + 1, statement_.size()));
  }

  void takeWhile(Kind kind, bool (*belongs)(char)) {
    const auto end = std::find_if_not(statement_.begin() + static_cast<std::ptrdiff_t>(at_), statement_.end(), belongs);
    const auto length = static_cast<std::size_t>(end - statement_.begin()) - at_;
    add(kind, std::string{statement_.substr(at_, length)}, at_ + length);
  }

  void add(Kind kind, std::string text, std::size_t end) {
    words_.push_back({kind, std::move(text), end});
    at_ = end;
  }

  std::string_view statement_;
  std::size_t at_ = 0;
  std::vector<SqlWord> words_;
};

}  // namespace

bool SqlWord::is(std::string_view keyword) const {
  return kind == Kind::name && compareWithoutCase(text, keyword) == 0;
}

bool SqlWord::names(std::string_view table) const {
  return kind != Kind::number && kind != Kind::sign && compareWithoutCase(text, table) == 0;
}

std::vector<SqlWord> sqlWords(std::string_view statement) { return Reader{statement}.words(); }

}  // namespace noldarz
