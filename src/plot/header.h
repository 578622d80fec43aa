// The header that an expanded canvas carries over its drawing.
#pragma once

#include "plot/fields.h"
#include "plot/paper.h"
#include "study/fields.h"

namespace noldarz {

/// What is drawn, and for whom.
inline std::string titleLine(const PlotFields& plot, const ProjectFields& project) {
  return plot.lblman.caption() + " For " + project.Orglbltxt.caption();
}

/// Title, scenario and, unless a picture lies behind, scale; nothing on a canvas of normal size.
inline void printHeader(PlotFields& plot, const PlotMenu& menu, const ProjectFields& project) {
  if (menu.Expscrn.caption() != shrinkCaption) return;
  printAt(plot.canvas, 2, 2, titleLine(plot, project));
  printAt(plot.canvas, 2, 5, plot.scnortxt.caption());
  if (menu.selctdwg.tag() != tag::picture) printAt(plot.canvas, 2, 11, plot.sclsdspl.caption());
}

}  // namespace noldarz
