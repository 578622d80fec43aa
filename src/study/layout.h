// The tables of a study, with the columns that the program reads or writes. A column's place is its position in the
// query of its table (study/queries.h), from 0.
#pragma once

#include "platform/store/layout.h"

namespace noldarz {

const Layout& studyLayout();

/// Value of `ScenarioOptn` in the rows of this module.
inline constexpr std::string_view moduleName{"Dispersion"};

/// Value of `scenr1.scenariotxtTmp` that asks for no stored run.
inline constexpr std::string_view noRunAsked{" "};

}  // namespace noldarz
