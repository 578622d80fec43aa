// The conversion mode of the population view: what the bands of a sector hold in another unit, or as head counts,
// becomes persons per hectare when the mode ends.
#pragma once

#include "platform/desktop.h"
#include "population/grid_row.h"

namespace noldarz {

class UnitConversion {
 public:
  struct Sees {
    PopulationState& state;
    GridView& view;
    GridRow& row;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the mode.
  explicit UnitConversion(const Sees& sees);

 private:
  void Form_Load() const;
  void begin() const;
  void denUnitListCbo_Click() const;
  void end() const;
  /// What the bands become, and the captions of those that become 0 and of those that stay as they are.
  struct Converted {
    std::vector<std::pair<int, std::string>> cells;
    std::string lost;
    std::string left;
  };
  Converted convertedBands() const;
  /// False when what was converted could not be stored: the bands are as they were typed.
  bool convert() const;
  void setTips(const std::string& tip) const;

  Sees sees_;
  GridView& view_;
};

}  // namespace noldarz
