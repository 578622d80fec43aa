// The chlorine example with a population grid of the test's own, and the population view open on it.
#pragma once

#include <string>

#include "population/grid_commands.h"
#include "support/test_study.h"

namespace noldarz::test {

class PopulationStudy : public TestStudy {
 public:
  /// `cells`: lines of the grid's row in a study text; "": the reference number has no row. `sector`: kept for the
  /// user.
  explicit PopulationStudy(const std::string& cells, const std::string& sector = "") : TestStudy(textWith(cells)) {
    run("start");
    if (!sector.empty())
      session->system().settings().set(sectorSetting::application, sectorSetting::section, sectorSetting::key, sector);
    run("click popdnsty");
    record.clear();
  }

  /// Texts of the five bands.
  std::string bands() { return texts("populatndnsty", gridBands); }
  std::string table() { return texts("gridcell", static_cast<int>(gridCells)); }
  /// The sectors that are set, from 0.
  std::string selected() {
    std::string set;
    for (int i = 0; i < gridSectors; ++i)
      if (field("absltftlyfrm.znePopdnsty(" + std::to_string(i) + ")").value() == 1) set += std::to_string(i);
    return set.empty() ? "-" : set;
  }

  std::string cell(const std::string& column, const std::string& reference = "HW-1") {
    return rows("SELECT " + column + " FROM poplatndnstytbl WHERE refNo = '" + reference + "'").at(0);
  }
  /// "populatndnsty_1_0=12.5" of each cell with a value in the study.
  std::string nonEmptyCells(const std::string& reference = "HW-1") {
    std::string found;
    for (int i = 0; i < static_cast<int>(gridCells); ++i)
      if (const std::string text = cell(columnOf(i), reference); !text.empty())
        found += (found.empty() ? "" : " ") + columnOf(i) + "=" + text;
    return found;
  }

 private:
  static std::string textWith(const std::string& cells) {
    std::string text = exampleStudy("chlorine");
    text.erase(text.find("[[poplatndnstytbl]]"));
    return cells.empty() ? text : text + "[[poplatndnstytbl]]\nrefNo = \"HW-1\"\n" + cells + "\n";
  }
  std::string texts(const std::string& array, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
      all += (i == 0 ? "" : " ") + text("absltftlyfrm." + array + "(" + std::to_string(i) + ")");
    return all;
  }
};

}  // namespace noldarz::test
