// The variables that the plots own: what ties the canvas to the ground, what the user has clicked, and what the
// drawings work with.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/variables.h"
#include "population/state.h"

namespace noldarz {

struct PlotState : WindState {
  double sourceX = 0;    ///< source point on the canvas (mm)
  double sourceY = 0;    ///< the same (mm)
  double plotScale = 0;  ///< ground (m) a millimetre of the canvas

  double halfWidthPlot = 0;     ///< half width at the sample (m)
  double plotEnd = 0;           ///< end point of the level that is drawn (m)
  std::int16_t plotColour = 0;  ///< its colour, index in the basic palette
  std::int16_t roseColour = 0;  ///< the same in a rose

  double northDeg = 0;         ///< north direction of the dial (degrees)
  std::int16_t zoomLevel = 0;  ///< level that a fit command fits to the page
};

/// The wind by sector: 16 of them, clockwise; sector 0 is wind from the north.
inline constexpr int sectorCount = 16;
struct RoseState {
  std::array<double, sectorCount> windHalf{};   ///< half the wind of an orientation; between two, half their sum (%)
  std::array<double, sectorCount> windShare{};  ///< the same with its share of the whole wind (%)
  std::array<double, sectorCount> windFrac{};   ///< a hundredth of it
  std::array<double, 7> roseRadius{};           ///< 1 to 3: radii of the sector before, of this one and the next (m)
};

/// What the user points out on the canvas.
struct ClickState {
  double firstPtX = 0;   ///< first point of the scale (mm)
  double firstPtY = 0;   ///< the same (mm)
  double secondPtX = 0;  ///< second point of the scale (mm)
  double secondPtY = 0;  ///< the same (mm)
  double scaleSpan = 0;  ///< distance of the two (mm)
  double clickX = 0;     ///< location asked for (mm)
  double clickY = 0;     ///< the same (mm)
  double clickDist = 0;  ///< its distance from the source (m)
  double clickConc = 0;  ///< concentration at that distance (ppm)
  double legendIdx = 0;  ///< first free row of the legend of a chart

  std::int16_t locationOn = 0;     ///< 1: the location query was chosen
  std::int16_t locationReady = 0;  ///< 1: the location query has its source

  std::string drawFile;     ///< picture behind the drawing, or file written last
  bool dialReopen = false;  ///< the zone view was opened from the dial of the plot view
};

/// Scales of the concentration chart.
struct ChartState {
  double distPerUnit = 0;  ///< m per mm
  double concPerUnit = 0;  ///< ppm per mm
};

/// Points that a trace takes.
inline constexpr std::size_t tracePoints = 11;
/// The pipeline that the user traces. A bearing is 0 towards the left edge, 90 up, 180 to the right (whole degrees).
struct TraceState {
  bool pipeMode = false;                    ///< a trace is running
  std::array<std::int32_t, 3> pipeWords{};  ///< where words for a pipeline stand in the scenario text, from 1; 0: none
  std::int16_t traceRubber = 0;             ///< 1: a line runs from the last point to the pointer
  std::int16_t traceHasPoint = 0;           ///< 1: a bearing can be worked out
  bool traceStarted = false;                ///< a segment can be drawn
  double traceLastX = 0;                    ///< last point (mm)
  double traceLastY = 0;                    ///< the same (mm)

  std::array<double, tracePoints> traceX{};      ///< points (mm); 0, 0: a free entry
  std::array<double, tracePoints> traceY{};      ///< the same (mm)
  std::array<double, tracePoints> traceAngle{};  ///< bearings from point to point, 1 to 360; 0: a free entry
  double traceCount = 0;                         ///< points so far
  double traceSegs = 0;                          ///< bearings so far
  double traceAngleNow = 0;                      ///< bearing from the last point to the pointer
};

NOLDARZ_VARIABLES(PlotState, sourceX, sourceY, plotScale, halfWidthPlot, plotEnd, plotColour, roseColour, windDeg,
                  northDeg, zoomLevel);

NOLDARZ_VARIABLES(RoseState, windHalf, windShare, windFrac, roseRadius);

NOLDARZ_VARIABLES(ClickState, firstPtX, firstPtY, secondPtX, secondPtY, scaleSpan, clickX, clickY, clickDist, clickConc,
                  legendIdx, locationOn, locationReady, drawFile, dialReopen);

NOLDARZ_VARIABLES(ChartState, distPerUnit, concPerUnit);

NOLDARZ_VARIABLES(TraceState, pipeMode, pipeWords, traceRubber, traceHasPoint, traceStarted, traceLastX, traceLastY,
                  traceX, traceY, traceAngle, traceCount, traceSegs, traceAngleNow);

struct PlotRunState : Joined<PlotState, RoseState, ClickState, ChartState, TraceState> {};

}  // namespace noldarz
