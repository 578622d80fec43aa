// The variables that the scenario handling owns: what the working scenario asks for, the list of runs.
#pragma once

#include <cstdint>
#include <string>

#include "platform/variables.h"

namespace noldarz {

struct ScenarioState {
  std::string stblClassStored;    ///< stability class that the working scenario asks for
  std::int32_t scnrListLast = 0;  ///< base index of the last run of the list, five slots a run

  double mapScale = 1;        ///< drawing units per metre
  std::uint64_t mainWnd = 0;  ///< window of the main module, found at the end; 0: none
};

NOLDARZ_VARIABLES(ScenarioState, stblClassStored, scnrListLast, mapScale, mainWnd);

}  // namespace noldarz
