// The import mode of the population view: the grid of another reference number is looked at, and copied into the own
// one. The other grid is never changed.
#pragma once

#include "platform/desktop.h"
#include "population/grid_row.h"

namespace noldarz {

class GridImport {
 public:
  struct Sees {
    PopulationState& state;
    GridView& view;
    DataLink& dt5;
    GridRow& row;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the mode.
  explicit GridImport(const Sees& sees);

 private:
  void Form_Load() const;
  void begin();
  void listReferences() const;
  void end() const;
  void popdnstycbo_Click();
  /// Stands on the first row of the entry, and takes its grid into the buffer.
  void takeGrid();
  void impotBtn_Click();
  void replaceGrid();
  void showClasses() const;

  Sees sees_;
  GridView& view_;
  bool losesFractions_ = false;  // of the grid in the buffer
};

}  // namespace noldarz
