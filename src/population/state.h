// The variables of the population grid, and of the wind direction, which its dial shows too.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/variables.h"
#include "toxic/absolute_numbers.h"

namespace noldarz {

/// The plots carry it among their variables.
struct WindState {
  double windDeg = 0;  ///< wind direction of the dials (degrees)
};

/// Compass sectors, clockwise from north, and rings of 2 km out to 10 km.
inline constexpr int gridSectors = 8;
inline constexpr int gridBands = ringCount;
inline constexpr std::size_t gridCells = std::size_t{gridSectors} * gridBands;

struct PopulationState {
  std::int16_t windOrient = 0;     ///< sector chosen, from 0; later the band that was left last
  std::int16_t sectorSaved = 0;    ///< sector that the user chose last, from 0
  std::int16_t popViewOpened = 0;  ///< 1: the view was opened since the report was

  std::array<std::int16_t, gridCells> popImportBuf{};  ///< grid to import, sector by sector (persons/Ha)
  std::int16_t convertArmed = 0;                       ///< -1: a conversion was opened
  std::int16_t dragging = 0;                           ///< -1: the wind arm is being dragged
};

NOLDARZ_VARIABLES(PopulationState, windOrient, sectorSaved, popViewOpened, popImportBuf, convertArmed, dragging);

}  // namespace noldarz
