// The variables that the plots own: what ties the canvas to the ground, and what the drawings work with.
#pragma once

#include <array>
#include <cstdint>

#include "platform/variables.h"

namespace noldarz {

struct PlotState {
  double sourceX = 0;    ///< source point on the canvas (mm)
  double sourceY = 0;    ///< the same (mm)
  double plotScale = 0;  ///< ground (m) a millimetre of the canvas

  double halfWidthPlot = 0;     ///< half width at the sample (m)
  double plotEnd = 0;           ///< end point of the level that is drawn (m)
  std::int16_t plotColour = 0;  ///< its colour, index in the basic palette
  std::int16_t roseColour = 0;  ///< the same in a rose

  double windDeg = 0;          ///< wind direction of the dial (degrees)
  double northDeg = 0;         ///< north direction of the dial (degrees)
  std::int16_t zoomLevel = 0;  ///< level that a fit command fits to the page
};

/// The wind by sector: 16 of them, clockwise; sector 0 is wind from the north.
inline constexpr int sectorCount = 16;
struct RoseState {
  std::array<double, sectorCount> windHalf{};   ///< half the wind of an orientation; between two, half their sum (%)
  std::array<double, sectorCount> windShare{};  ///< the same with its share of the whole wind (%)
  std::array<double, sectorCount> windFrac{};   ///< a hundredth of it
};

NOLDARZ_VARIABLES(PlotState, sourceX, sourceY, plotScale, halfWidthPlot, plotEnd, plotColour, roseColour, windDeg,
                  northDeg, zoomLevel);

}  // namespace noldarz
