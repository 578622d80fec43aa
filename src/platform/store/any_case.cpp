#include "platform/store/any_case.h"

#include <unicase.h>

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <memory>

#include "platform/store/sql_words.h"

namespace noldarz {

namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

const std::uint8_t* bytesOf(std::string_view text) { return reinterpret_cast<const std::uint8_t*>(text.data()); }

}  // namespace

int compareWithoutCase(std::string_view a, std::string_view b) {
  // Names of columns are: the folding of any script takes a hundred times as long.
  if (isAscii(a) && isAscii(b)) {
    const auto order = std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) <=> lower(y); });
    return static_cast<int>(std::is_gt(order)) - static_cast<int>(std::is_lt(order));
  }
  int order = 0;
  if (u8_casecmp(bytesOf(a), a.size(), bytesOf(b), b.size(), nullptr, nullptr, &order) == 0) return order;
  return a.compare(b);
}

std::string folded(std::string_view text) {
  std::string result{text};
  if (isAscii(text)) {
    std::transform(text.begin(), text.end(), result.begin(), lower);
    return result;
  }
  std::size_t size = 0;
  const std::unique_ptr<std::uint8_t, void (*)(void*)> bytes{
      u8_casefold(bytesOf(text), text.size(), nullptr, nullptr, nullptr, &size), std::free};
  return bytes ? std::string{reinterpret_cast<const char*>(bytes.get()), size} : result;
}

std::string comparingAnyCase(const std::string& query) {
  using Kind = SqlWord::Kind;
  const std::vector<SqlWord> words = sqlWords(query);
  const auto isName = [&](std::size_t i) {
    return i < words.size() && (words[i].kind == Kind::name || words[i].kind == Kind::quotedName);
  };
  std::string compared;
  std::size_t copied = 0;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (!words[i].isSign('=')) continue;
    std::size_t right = i + 1;
    while (right + 1 < words.size() && words[right].isSign('(')) ++right;
    if (isName(right) && isName(right + 2) && words[right + 1].isSign('.'))
      right += 2;
    else if (words[right].kind != Kind::text)
      continue;
    compared += query.substr(copied, words[right].end - copied) + " COLLATE " + anyCase;
    copied = words[right].end;
  }
  return compared + query.substr(copied);
}

}  // namespace noldarz
