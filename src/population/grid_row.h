// The row of the grid in the study, through the link `dt5`: it is found or made, its cells are shown in the view, and
// what the user enters is stored there. Only the row of the own reference number is ever written.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/status_line.h"
#include "platform/store/data_link.h"
#include "population/grid.h"
#include "population/grid_view.h"
#include "study/fields.h"
#include "study/queries.h"
#include "study/state.h"
#include "toxic/absolute_numbers.h"

namespace noldarz {

class GridRow {
 public:
  struct Sees {
    DataLink& dt5;
    StudyState& study;
    const ProjectFields& project;
    GridView& view;
    Queries& queries;
    StatusLine& status;
  };
  explicit GridRow(const Sees& sees);

  /// Opens the row of the own reference number; one that isn't there is made, with nothing in its cells.
  void open();
  /// Stores what is pending and lets go of the study. What can't be stored is told.
  void close();
  /// Runs the query again, in import mode that of all reference numbers, and stands on its first row. Without a row
  /// nothing can be entered.
  void requery();
  /// What is pending in the fields is no edit: they show the row again.
  void drop();

  /// The band fields show and edit this sector, from 0.
  void bind(int sector);
  int sector() const { return sector_; }
  /// The cell of a band of that sector.
  int cellOf(int band) const { return cellIndex(sector_, band); }
  /// Tells above the bands which sector they show.
  void nameSector() const;

  /// Puts texts into cells and stores them, with what is pending in other fields, in one transaction. False when they
  /// are not stored: a failure of the study is told, and all fields show what it holds; without a study the fields take
  /// them; in import mode nothing is done.
  bool store(const std::vector<std::pair<int, std::string>>& cells);
  /// Stores what is pending in bound fields, if anything is.
  bool update();
  /// The user has entered a density in a field of the cell.
  void enter(int cell, const Field& field);
  /// "density 50/Ha in sector 1 (north), 0 To 2 km"
  static std::string wordsOf(int cell, const std::string& density);

  /// Whether the link stands on a row.
  bool hasRow() const { return sees_.dt5.hasRow(); }
  bool isOwn() const;
  /// The reference number of the row that the link stands on; empty without one.
  std::string reference() const;
  /// A cell of that row: nothing counts as 0. Fails with typeMismatch for one that holds no number.
  double density(int cell) const;
  /// The densities of a sector, from 0, as the study holds them for the own reference number, which needs no open view;
  /// nothing when it has no grid. Fails with a StoreFailure, and with querySyntax for a name that the study does not
  /// take.
  std::optional<RingDensities> stored(const std::shared_ptr<Database>& study, int sector) const;

  /// Is told when the row or its cells may have changed.
  void onShown(std::function<void()> rule) { shown_ = std::move(rule); }
  /// The fields follow the row: without one they are empty, and nothing can be entered.
  void changed() const;

 private:
  const std::string& own() const { return sees_.project.refnolbl.caption(); }
  /// No study is open: the fields stand alone, and bands and table show the same.
  bool isAlone() const { return sees_.study.dbPath.empty(); }
  void make();
  void show(int cell, const std::string& text) const;

  Sees sees_;
  int sector_ = 0;
  std::function<void()> shown_ = [] {};
};

}  // namespace noldarz
