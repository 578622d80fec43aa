#include "scenario/row_inputs.h"

namespace noldarz {

std::string textIn(const DataLink& row, std::string_view column) {
  const Cell& cell = row.value(column);
  if (holdsNothing(cell)) fail(FailureNumber::typeMismatch);
  return textOf(cell);
}

std::string levelColumn(std::string_view stem, int number) { return std::string{stem} + std::to_string(number); }

void takeLevels(const DataLink& row, const LevelFields& level, const Trap& skipping) {
  for (int i = 0; i < levelCount; ++i)
    skipping.steps([&] { level.constn[i].setText(textIn(row, levelColumn("constn", i + 1))); },
                   [&] { level.conclbl[i].setCaption(textIn(row, levelColumn("constnTxt", i + 1))); });
}

void takeProbit(const DataLink& row, const ScenarioInputs& in, const Trap& skipping) {
  skipping.steps([&] { in.prbtoptn.setValue(isTrue(row.value("prbtoptn")) ? 1 : 0); },
                 [&] { in.avalftl.setText(textIn(row, "avalftl")); },
                 [&] { in.nvalftl.setText(textIn(row, "nvalftl")); },
                 [&] { in.avalinj.setText(textIn(row, "avalinj")); },
                 [&] { in.nvalinj.setText(textIn(row, "nvalinj")); });
}

}  // namespace noldarz
