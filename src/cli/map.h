// The command `map`: computes as `run` does, and maps the zones into a CAD drawing, with places if there are any.
#pragma once

#include <filesystem>

#include "cli/computed_run.h"

namespace noldarz {

struct MapRequest : RunTarget {
  std::filesystem::path drawing;  ///< to map into: DXF, or DWG where there is a converter
  std::string at;                 ///< source "X,Y" (drawing units)
  int wind = 0;                   ///< where the wind blows to (whole degrees, 0 up, clockwise)
  std::string scale;              ///< drawing units per metre, above 0
  std::string locations;          ///< file of places, X,Y in drawing units a line; empty: none
  std::filesystem::path file;     ///< to write; the format goes by its name
};

/// Writes the drawing with the zones of all levels that have a begin and an end. The drawing that was read stays as it
/// is, unless it is the file to write. A request that can't be taken has the status `refused` and computes nothing; a
/// run that is none, a drawing that can't be mapped into or written, `failed`.
ExitStatus mapIntoDrawing(const MapRequest& request, std::ostream& errors, const Folders& folders = Folders::ofUser());

}  // namespace noldarz
