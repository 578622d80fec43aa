#include "plot/paper.h"

#include <cmath>

#include "platform/text.h"

namespace noldarz {

namespace {

constexpr Colour gridColour{224, 224, 224};
constexpr double sourceRadius = 0.5;  // mm
constexpr double scaleBar = 20;       // mm

/// From 0 in steps as far as `end`.
void eachStep(double end, double step, const auto& draw) {
  double at = 0;
  while (at <= end) {
    draw(at);
    at += step;
  }
}

}  // namespace

void drawGrid(Canvas& canvas) {
  const double width = canvas.ScaleWidth();
  canvas.setDrawWidth(1);
  eachStep(width, gridStep, [&](double g) {
    canvas.Line(0, g, width, g, gridColour);
    canvas.Line(g, 0, g, width, gridColour);
  });
}

void drawFitGrid(Canvas& canvas) {
  const double width = canvas.ScaleWidth();
  const double height = canvas.ScaleHeight();
  canvas.setDrawWidth(1);
  eachStep(width, gridStep, [&](double g) { canvas.Line(width - g, 0, width - g, height, gridColour); });
  eachStep(height, gridStep, [&](double g) { canvas.Line(width, g, 0, g, gridColour); });
}

void drawAxes(Canvas& canvas, double sourceX, double sourceY, FirstAxis first) {
  const double width = canvas.ScaleWidth();
  const auto across = [&] { canvas.Line(width, sourceY, 0, sourceY, SystemColour::windowText); };
  if (first == FirstAxis::across) across();
  canvas.Line(sourceX, 0, sourceX, width, SystemColour::windowText);
  if (first == FirstAxis::upright) across();
}

void drawGround(Canvas& canvas) {
  const double width = canvas.ScaleWidth();
  const double height = canvas.ScaleHeight();
  canvas.setDrawWidth(1);
  eachStep(groundBand, 1, [&](double g) {
    const double y = height - (groundBand - g);
    canvas.Line(0, y, width, y, groundColour);
  });
  eachStep(std::floor(width), 1, [&](double x) { canvas.Line(x, height - groundBand, x, height, groundColour); });
}

void markSource(Canvas& canvas, double x, double y, Weight weight, std::string_view text) {
  canvas.PSet(x, y, placing);
  canvas.Circle(x, y, sourceRadius);
  if (weight == Weight::bold) canvas.setFontBold(true);
  canvas.Print(text);
  if (weight == Weight::bold) canvas.setFontBold(false);
}

std::string scaleBarText(double plotScale) { return Format(plotScale * scaleBar, "0.00") + " m"; }

void drawScaleBar(Canvas& canvas, double plotScale) {
  constexpr Colour ink = SystemColour::buttonText;
  const double right = canvas.ScaleWidth() - 50;
  const double left = right - scaleBar;
  const double y = canvas.ScaleHeight() - 10;
  canvas.Line(right, y - 4, right, y, ink);
  canvas.Line(left, y, right, y, ink);
  canvas.Line(left, y + 4, left, y, ink);
  canvas.Print(scaleBarText(plotScale) + " ");
}

}  // namespace noldarz
