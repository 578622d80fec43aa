// The command `plot`: computes as `run` does, and writes a drawing of the zones.
#pragma once

#include <filesystem>

#include "cli/computed_run.h"
#include "plot/plot_picture.h"

namespace noldarz {

struct PlotRequest : RunTarget {
  PlotKind kind = PlotKind::isopleths;
  std::optional<int> wind;  ///< degrees, 0 up, clockwise; nothing: up, or to the right in a side view
  int north = 0;            ///< degrees, of a rose
  std::string chosen;       ///< indices of levels, separated by commas, highest first; empty: all
  std::string trace;        ///< file of a pipeline: a point a line, x and y in m, x to the right, y up
  std::string
      size;  ///< of the page: "A4", lying, or width and height in mm, "200x150"; empty: A4, or what a chart needs
  bool limitCircles = false;
  bool lineStyles = false;     ///< lines of a level have a pattern beside their colour
  std::filesystem::path file;  ///< .svg, .pdf, .png or .bmp
};

/// Writes the drawing of the plot view, fitted to the page, with title, scale, legend, date and inputs at its foot. A
/// request that can't be taken has the status `refused` and computes nothing; a run that is none, or a file that can't
/// be written, `failed`.
ExitStatus plotToFile(const PlotRequest& request, const std::string& version, std::ostream& errors,
                      const Folders& folders = Folders::ofUser());

}  // namespace noldarz
