// The button `getconclvl`: the six levels from the limits of the chemical, in descending order.
#pragma once

#include <string>
#include <string_view>

#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "study/fields.h"
#include "study/links.h"

namespace noldarz {

class LevelChoice {
 public:
  struct Sees {
    const LevelFields& level;
    const ResultFields& result;
    const ProjectFields& project;
    const ScenarioFields& scenario;
    MainLinks& links;
    Desktop& desktop;
    StatusLine& status;
  };
  explicit LevelChoice(const Sees& sees) : sees_(sees) {}

  /// UEL, LEL, TEEL3, TEEL2, TEEL1 and TEEL0 of the chemical (ppm) become the levels; one without a number becomes 0.
  /// Pairs of a flammable chemical that are out of order are exchanged, if the user wishes so. A TEEL3 of 0 gives way
  /// to the IDLH, a TEEL0 of 0 to the TWA, as the study has them, number or not. A failed step is skipped.
  void getconclvl_Click();

 private:
  /// The chemical's column as the study holds it, through the field `conctemp`.
  std::string limit(std::string_view column);
  void fillGaps();
  void putInOrder();
  bool wishesReset();
  void replaceMissing(int level, std::string_view column);

  Sees sees_;
};

bool isFlammable(const ProjectFields& project);

/// Names the two upper levels of a chemical that is not flammable: they are the user's own, and there is no flammable
/// mass.
void nameUpperLevels(const LevelFields& level, const ResultFields& result);

}  // namespace noldarz
