// The population view `absltftlyfrm`: the five bands of the selected sector beside a dial of sectors, rings and wind,
// conversion and import, and the whole grid as a table. Places on the dial are in twips.
#pragma once

#include "platform/dial.h"
#include "platform/view.h"
#include "population/state.h"

namespace noldarz {

inline constexpr const char* populationTitle = "NOLDA-RZ : population density";

struct GridView {
  explicit GridView(Views& views);

  /// Whether a mode is on: another grid is looked at, a conversion is prepared.
  bool imports() const { return getfrPre.value() == 1; }
  bool converts() const { return convrtPBtn.value() == 1; }

  View view;
  FieldArray<gridBands> distlbl;        // captions of the bands
  FieldArray<gridBands> populatndnsty;  // density of the selected sector (persons/Ha)
  Field& zonenumlbl;                    // which sector, or what to enter for a conversion
  Field& popdnstycbo;                   // settlement classes; in import mode the reference numbers
  Field& convrtPBtn;                    // 1: conversion mode
  Field& denUnitListCbo;                // unit of a conversion
  Field& getfrPre;                      // 1: import mode
  Field& impotBtn;                      // imports
  FieldArray<gridSectors> znePopdnsty;  // the sectors; one is 1
  Field& PopdnstySector;                // the dial
  FieldArray<gridBands> ringshp;        // its rings; the fill colour tells the band in focus
  FieldArray<gridSectors> sectorshp;    // its sectors; the fill colour tells the selected one
  FieldArray<gridBands> ringlbl;
  Field& srclbl;
  WindArm wind;
  Field& wndsld1;                  // wind direction (whole degrees, 0 to 360)
  Field& wnddeg;                   // the same
  FieldArray<gridCells> gridcell;  // density of all sectors, by cellIndex (persons/Ha)
  FieldArray<gridBands> totlbl;    // people within the outer radius of the band
  Field& copygrd;                  // copies the table
  Field& pastegrd;                 // pastes into it
  Field& prvrpt1;                  // fills the absolute numbers of the report and closes
  Field& clsfrm1;                  // closes
  Field& statuslbl;                // what happened last, what could not be stored
};

/// The sector of a place on the dial, from 0; -1: none, it lies beyond the rings.
int sectorAt(const GridView& view, double x, double y);

}  // namespace noldarz
