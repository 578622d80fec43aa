// What `noldarz-cli run` prints of a run: a page for people, one JSON object, or a line of a table. Every number is the
// text of its field, so the same run gives the same bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/record.h"
#include "system/system.h"

namespace noldarz {

enum class ReportFormat : std::uint8_t { page, json, csv };

/// The boxes of a run, each said once and counted: a failing statement can show one at every step of a sweep.
class Messages {
 public:
  void add(const BoxShown& box);
  /// In the order of their first appearance.
  const std::vector<std::pair<BoxShown, int>>& counted() const { return counted_; }

 private:
  std::vector<std::pair<BoxShown, int>> counted_;
};

/// A text of a field with the name of the field, its label for people, and its unit.
struct ReportItem {
  std::string key;
  std::string label;
  std::string text;
  std::string unit;
};

struct ReportSection {
  std::string key;
  std::string title;
  std::vector<ReportItem> items;
};

/// Rows of texts under a head.
struct ReportTable {
  std::string key;
  std::string title;
  std::vector<ReportItem> columns;  ///< their texts are in the rows
  std::vector<std::vector<std::string>> rows;
  std::size_t wordColumns = 0;  ///< columns of words, from the left; the others are numbers
};

struct Report {
  std::string version;  ///< of the program
  std::string source;   ///< what was run
  std::vector<ReportSection> sections;
  std::vector<ReportTable> tables;
  Messages messages;
  std::string status;  ///< what became of the results; empty without a study
};

/// Reads the finished run from the fields.
/// `limitsFrom`: who has chosen how the limits are found.
Report reportOf(System& system, std::string version, std::string source, Messages messages,
                const std::string& limitsFrom);

/// The report table as it stands, with the numbers of people for the densities of the five rings (persons/Ha) if there
/// are.
ReportTable probitTable(const RunState& state, const std::vector<std::string>& densities);

std::string printed(const Report& report, ReportFormat format);

}  // namespace noldarz
