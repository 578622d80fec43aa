#include "scenario/row_inputs.h"

namespace noldarz {

std::string levelColumn(std::string_view stem, int number) { return std::string{stem} + std::to_string(number); }

void takeLevels(const DataLink& row, const LevelFields& level, const Trap& skipping) {
  for (int i = 0; i < levelCount; ++i)
    skipping.steps([&] { level.constn[i].setText(textIn(row, levelColumn("constn", i + 1))); },
                   [&] { level.conclbl[i].setCaption(textIn(row, levelColumn("constnTxt", i + 1))); });
}

}  // namespace noldarz
