// How the wind is shared out over the eight orientations, and what is left for calm. Called when a share is left, by
// the close-out, and before a wind rose.
#pragma once

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/text.h"

namespace noldarz {

/// Sum of the eight shares (%), without the last bits of the addition. Fails for a share that is no number.
double windSum(const ScenarioInputs& in);

class WindShare {
 public:
  struct Sees {
    WindShareState& shares;
    const ScenarioInputs& in;
    const ResultFields& result;
    Desktop& desktop;
  };
  explicit WindShare(const Sees& sees) : sees_(sees) {}

  /// Sums the shares into windTotal and shows what is left for calm. A sum above 100 % shows a box, and false comes
  /// back; one of 0 shows a box and counts as 0.001. A share that is no number leaves the sum as it was.
  bool shareOut();

 private:
  void showCalm(double percent) { sees_.result.calmlbl[0].setCaption(Format(percent, "0.00")); }

  Sees sees_;
};

}  // namespace noldarz
