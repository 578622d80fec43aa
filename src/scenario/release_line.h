// The release of the working scenario in one line of the main view, "PLUME, 0.3 kg/s, 70.9 g/mol, -34 °C": its fields
// carry values for the code and are not shown.
#pragma once

#include "engine/fields.h"
#include "platform/view.h"
#include "scenario/fields.h"

namespace noldarz {

class ReleaseLine {
 public:
  struct Sees {
    View& view;
    const ScenarioInputs& in;
    const ScenarioFields& scenario;
  };
  /// Subscribes to changes of the release.
  explicit ReleaseLine(const Sees& sees);

 private:
  void show() const;

  Sees sees_;
  Field& line_;
};

}  // namespace noldarz
