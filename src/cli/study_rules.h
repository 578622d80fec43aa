// What the rows of a study must hold so that the program can work on it and its text can come back the same: one set of
// rules for a text that becomes a study, a study that becomes a text, and the check of one.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/store/cell.h"
#include "platform/store/layout.h"

namespace noldarz {

class StudyRules {
 public:
  explicit StudyRules(const Layout& layout) : layout_(layout) {}

  /// Takes the next row of a table, with a cell for each of its columns. Why it can't be in a study, to follow a name
  /// of the row; empty when it can.
  std::string faultOfRow(const Table& table, const std::vector<Cell>& cells);
  /// Why the rows taken are no study the program could start on; empty when they are.
  std::string faultOfStudy() const;

 private:
  std::string faultOfKey(const Table& table, const std::vector<Cell>& cells);

  const Layout& layout_;
  std::map<std::string_view, std::unordered_set<std::string>> keys_;  // of each table, folded
  std::map<std::string_view, int> rows_;
  int activeProjects_ = 0;
};

/// What a column takes, in words.
std::string_view typeName(ColumnType type);

}  // namespace noldarz
