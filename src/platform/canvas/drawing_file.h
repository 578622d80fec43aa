// A drawing as a file: PNG and BMP are pixels, PDF and SVG keep lines as lines and texts as texts. All fronts write
// their files here, so that the same list gives the same picture.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/canvas/canvas.h"

namespace noldarz {

struct LegendRow {
  Colour colour;
  std::string text;
};

/// What goes into the file.
struct DrawingFile {
  const Drawing& drawing;
  double width = 0;                      ///< of the canvas (mm)
  double height = 0;                     ///< of the canvas (mm)
  std::shared_ptr<const Image> picture;  ///< behind the drawing, unscaled; null: none
  std::vector<LegendRow> legend;         ///< in a band under the canvas
  std::vector<std::string> foot;         ///< lines of text under the legend
  bool lineStyles = false;               ///< a pattern beside the colour of each level, for those who see no colours
  double dotsPerInch = 300;              ///< of PNG and BMP
};

/// Writes the file, wholly or not at all; its kind is told by its extension: .png, .bmp, .svg or .pdf, in any case.
/// Throws std::invalid_argument for another extension, for a canvas without size and for more than 100 million pixels,
/// std::filesystem::filesystem_error when the file can't be written; a file that was there stays then.
void writeDrawing(const std::filesystem::path& file, const DrawingFile& what);

}  // namespace noldarz
