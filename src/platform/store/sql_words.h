// The words of an SQL text: what stands in quotes and comments is not taken for something else.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

struct SqlWord {
  enum class Kind : std::uint8_t {
    name,        ///< a keyword, or a name without quotes
    quotedName,  ///< in double quotes, brackets or grave accents
    text,        ///< in single quotes
    number,
    sign
  };
  Kind kind;
  std::string text;  ///< without its quotes
  std::size_t end;   ///< where it ends in the statement

  /// Whether it is the keyword, given in capitals.
  bool is(std::string_view keyword) const;
  bool isSign(char sign) const { return kind == Kind::sign && text.front() == sign; }
  /// Whether it can name the table: the engine takes texts for names, too.
  bool names(std::string_view table) const;
};

std::vector<SqlWord> sqlWords(std::string_view statement);

}  // namespace noldarz
