// What a run row holds of the inputs of the view, brought from the row into the fields. The run row step and the list
// of runs use it. A cell without a value leaves its field as it is.
#pragma once

#include <string>
#include <string_view>

#include "engine/fields.h"
#include "platform/store/data_link.h"

namespace noldarz {

/// The six levels and their captions.
void takeLevels(const DataLink& row, const LevelFields& level, const Trap& skipping);

/// "constn" and 3: "constn3".
std::string levelColumn(std::string_view stem, int number);

}  // namespace noldarz
