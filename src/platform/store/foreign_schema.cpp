#include "platform/store/foreign_schema.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/store/sql_words.h"

namespace noldarz {

namespace {

using Words = std::vector<SqlWord>;

/// Keywords in the definition of a table after which something is computed or decided, and what they stand for.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> actingWords{{{"CHECK", "a check"},
                                                                                    {"GENERATED", "a generated column"},
                                                                                    {"AS", "a generated column"},
                                                                                    {"CONFLICT", "a conflict clause"}}};

bool sameWords(const Words& a, const Words& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const SqlWord& x, const SqlWord& y) {
    return x.kind == y.kind && x.text == y.text;
  });
}

/// What the statement makes: the keyword, and the place of the name.
std::pair<std::string_view, std::size_t> objectOf(const Words& words) {
  constexpr std::array<std::string_view, 5> kinds{"TRIGGER", "VIEW", "VIRTUAL", "INDEX", "TABLE"};
  for (std::size_t i = 1; i + 1 < words.size(); ++i)
    for (const auto kind : kinds)
      if (words[i].is(kind)) return {kind, i + (words[i + 1].is("TABLE") ? 2 : 1)};
  return {"", words.size()};
}

std::string actorIn(const Words& words, std::string_view table) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    for (const auto& [keyword, actor] : actingWords)
      if (words[i].is(keyword)) return fmt::format("{} in table \"{}\"", actor, table);
    if (words[i].is("DEFAULT") && i + 1 < words.size() && words[i + 1].isSign('('))
      return fmt::format("a computed default in table \"{}\"", table);
  }
  return "";
}

/// Whether an index is one of columns as they stand, of all rows.
bool isPlainIndex(const Words& words) {
  const auto begin = std::find_if(words.begin(), words.end(), [](const SqlWord& w) { return w.isSign('('); });
  return begin != words.end() && std::all_of(begin + 1, words.end(), [](const SqlWord& w) {
           const bool expression =
               w.kind == SqlWord::Kind::number || (w.kind == SqlWord::Kind::sign && !w.isSign(',') && !w.isSign(')'));
           return !expression && !w.is("WHERE") && !w.is("CASE") && !w.is("AND") && !w.is("OR") && !w.is("NOT") &&
                  !w.is("IS") && !w.is("LIKE");
         });
}

}  // namespace

std::string foreignActor(std::string_view statement, const Layout& layout) {
  const Words words = sqlWords(statement);
  const auto& [kind, at] = objectOf(words);
  if (at >= words.size()) return "";
  const std::string& name = words[at].text;
  const auto tableNamed = [&layout](const SqlWord& word) {
    return std::find_if(layout.tables.begin(), layout.tables.end(), [&](const Table& t) { return word.names(t.name); });
  };
  const auto none = layout.tables.end();
  if (kind == "TABLE") return tableNamed(words[at]) == none ? "" : actorIn(words, tableNamed(words[at])->name);
  if (std::all_of(words.begin(), words.end(), [&](const SqlWord& w) { return tableNamed(w) == none; })) return "";
  if (kind == "INDEX") return isPlainIndex(words) ? "" : fmt::format("an index by an expression \"{}\"", name);
  if (kind == "TRIGGER") {
    for (const auto& triggers : {keyTriggers(layout), formerKeyTriggers(layout)})
      for (const std::string& own : triggers)
        if (sameWords(words, sqlWords(own))) return "";
    return fmt::format("a trigger \"{}\"", name);
  }
  return fmt::format("{} \"{}\"", kind == "VIEW" ? "a view" : "a virtual table", name);
}

std::string faultOfTable(std::string_view statement) {
  const Words words = sqlWords(statement);
  if (objectOf(words).first != "TABLE") return "is no table of rows";
  for (std::size_t i = 0; i + 1 < words.size(); ++i)
    if (words[i].is("WITHOUT") && words[i + 1].is("ROWID")) return "has no row numbers";
  return "";
}

}  // namespace noldarz
