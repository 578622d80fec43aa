// The whole grid as a table, sector by sector: edited in place, copied to a spreadsheet and pasted from one, shaded by
// density, with the people within each radius below it.
#pragma once

#include "platform/desktop.h"
#include "population/grid_row.h"

namespace noldarz {

class GridTable {
 public:
  struct Sees {
    GridView& view;
    GridRow& row;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the table, and follows the row.
  explicit GridTable(const Sees& sees);

 private:
  void show() const;
  void gridcell_LostFocus(int cell);
  void copygrd_Click() const;
  void pastegrd_Click() const;
  /// Why the text can't be pasted; empty when it can. A failure of the study is told by the row.
  std::string paste(const std::string& text) const;
  /// The cells that rows of texts go to, from the one on that had the focus last; a whole table begins with the first.
  /// Why they can't; empty when they can.
  std::string placeCells(const std::vector<std::vector<std::string>>& rows, bool tabs,
                         std::vector<std::pair<int, std::string>>& cells) const;

  Sees sees_;
  GridView& view_;
  int lastCell_ = 0;  // that had the focus last
};

/// The cells of a text from a spreadsheet, row by row, in which tabs separate them, or commas where there is no tab.
std::vector<std::vector<std::string>> cellsOfText(const std::string& text);

}  // namespace noldarz
