// What a project must have of heights and terrain before a press, and lacks. The start-up and the rules of the fields
// tell it.
#pragma once

#include <string>

#include "engine/air.h"
#include "engine/fields.h"

namespace noldarz {

/// A sentence that names the heights and the terrain that are missing; empty when none is.
inline std::string missingHeights(const ScenarioInputs& in) {
  std::string names;
  const auto add = [&](bool missing, const char* name) {
    if (missing) names += (names.empty() ? "" : ", ") + std::string{name};
  };
  add(!in.htreltxt.isNumeric(), "height of release");
  add(!in.htsmul.isNumeric(), "height of simulation");
  add(in.roghwndoptcbo.wordIndex(terrainEntries) < 0, "terrain");
  return names.empty() ? "" : "Enter before Compute: " + names + ".";
}

}  // namespace noldarz
