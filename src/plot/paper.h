// What is drawn under and beside every plot: grids, axes, the ground in a side view, the mark of the source and the bar
// of a scale. Lengths in millimetres of the canvas.
#pragma once

#include <string_view>

#include "platform/canvas/canvas.h"

namespace noldarz {

/// White dots of the basic palette place the texts of a drawing.
inline constexpr Colour placing = basicPalette[15];

/// Grid lines lie so far apart (mm).
inline constexpr double gridStep = 10;

/// A text at a point of the canvas.
inline void printAt(Canvas& canvas, double x, double y, std::string_view text) {
  canvas.PSet(x, y, placing);
  canvas.Print(text);
}

/// The grid of plain paper, from the upper left corner.
void drawGrid(Canvas& canvas);
/// The grid under a fit, from the right edge, in two runs.
void drawFitGrid(Canvas& canvas);

enum class FirstAxis : std::uint8_t { across, upright };
/// The axes through the source of a fit.
void drawAxes(Canvas& canvas, double sourceX, double sourceY, FirstAxis first);

inline constexpr Colour groundColour{255, 128, 255};
/// A band of hatches along the lower edge, so high.
inline constexpr double groundBand = 10;
void drawGround(Canvas& canvas);

enum class Weight : std::uint8_t { normal, bold };
inline constexpr std::string_view sourceText{"  Source point"};
/// A small circle on the source, and what it is.
void markSource(Canvas& canvas, double x, double y, Weight weight, std::string_view text = sourceText);

/// What the length of the scale bar is on the ground: "123.45 m".
std::string scaleBarText(double plotScale);
/// A bar of 20 mm in the lower right corner, with that text.
void drawScaleBar(Canvas& canvas, double plotScale);

}  // namespace noldarz
