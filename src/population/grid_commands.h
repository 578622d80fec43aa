// What the population view does: it opens on the grid of the reference number, a sector is selected, densities are
// typed or taken from a settlement class, the wind is turned, and the numbers of the report are worked out.
#pragma once

#include "platform/desktop.h"
#include "platform/pointer_event.h"
#include "population/grid_row.h"
#include "population/report_table.h"
#include "population/wind_direction.h"
#include "study/outputs.h"

namespace noldarz {

class GridCommands {
 public:
  struct Sees {
    PopulationState& state;
    WindState& wind;
    GridView& view;
    Field& popdnsty;          // menu entry that opens the view
    const Field& outputList;  // can be used once there are results
    View& reportView;
    const ReportTableFields& report;
    GridRow& row;
    Outputs& outputs;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& status;
    StatusLine& mainStatus;
  };
  /// Subscribes the rules of the view, and attaches it.
  explicit GridCommands(const Sees& sees);

 private:
  void Form_Load();
  void takeWind() const;
  /// The slider follows `windDeg`, within its ends.
  void slideToWind() const;
  void closing() const;
  /// The first sector with people in it, if there is one; its bands are shown.
  void popSelectFirstSector();
  void takeSavedSector();
  /// One of the sectors is 1; -1: none. The one that the bands show is shaded on the dial.
  void markSector(int sector) const;

  void znePopdnsty_GotFocus(int sector);
  void znePopdnsty_Click(int sector);
  void keepSector(int sector) const;

  void populatndnsty_LostFocus(int band);
  void markBand(int band) const;
  /// The band that takes a settlement class.
  int classBand() const;
  void popdnstycbo_Click() const;

  void pointer(const PointerEvent& event);
  void press(double x, double y);
  void drag(double x, double y) const;

  void prvrpt1_Click();
  void tellPeople(const std::string& where) const;
  void close() const { sees_.view.view.close(); }

  Sees sees_;
  GridView& view_;
  WindDirection wind_;
  int focusedSector_ = -1;  // -1: none has the focus
};

/// Where the sector that was chosen last is kept for the user, from 0.
namespace sectorSetting {
inline constexpr const char* application = "noldarz";
inline constexpr const char* section = "znePopdnstytr";
inline constexpr const char* key = "znePopdnstytr1";
}  // namespace sectorSetting

/// The number of the sector that is kept, from 0. Fails for a setting that is no number.
int savedSector(const Settings& settings);
inline bool isSector(int number) { return number >= 0 && number < gridSectors; }

}  // namespace noldarz
