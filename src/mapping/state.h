// The variables that the mapping owns: what it draws into a CAD drawing.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/variables.h"

namespace noldarz {

struct CadState {
  double textHeight = 0;               ///< height of texts (drawing units)
  std::string cadText;                 ///< text that was added last, or comes next
  std::array<double, 66> splinePts{};  ///< fit points of an outline, x, y and z of each (drawing units)
  std::int16_t splineIdx = 0;          ///< point of the outline that is worked out, from 1; 0: none
  std::int16_t sourceSet = 0;          ///< 1: location points have their source
};

NOLDARZ_VARIABLES(CadState, textHeight, cadText, splinePts, splineIdx, sourceSet);

}  // namespace noldarz
