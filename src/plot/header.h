// The header that an expanded canvas carries over its drawing.
#pragma once

#include "plot/fields.h"
#include "study/fields.h"

namespace noldarz {

/// White dots of the basic palette place the texts of a drawing.
inline constexpr Colour placing = basicPalette[15];

/// A text at a point of the canvas (mm).
inline void printAt(Canvas& canvas, double x, double y, std::string_view text) {
  canvas.PSet(x, y, placing);
  canvas.Print(text);
}

/// Title, scenario and, unless a picture lies behind, scale; nothing on a canvas of normal size.
inline void printHeader(PlotFields& plot, const PlotMenu& menu, const ProjectFields& project) {
  if (menu.Expscrn.caption() != shrinkCaption) return;
  printAt(plot.canvas, 2, 2, plot.lblman.caption() + " For " + project.Orglbltxt.caption());
  printAt(plot.canvas, 2, 5, plot.scnortxt.caption());
  if (menu.selctdwg.tag() != "2") printAt(plot.canvas, 2, 11, plot.sclsdspl.caption());
}

}  // namespace noldarz
